#include "link/ModuleList.h"

#include "link/DriveSerial.h"

#include <algorithm>

namespace quillon {

int CModuleList::Refresh(CDriveSerial& link)
{
    std::vector<DeviceRecord> found;
    link.DiscoverDevices(found);
    return Take(std::move(found), link);
}

int CModuleList::Take(std::vector<DeviceRecord> found, CDriveSerial& link)
{
    SetDevices(std::move(found));
    if (m_devices.empty()) {
        link.Close();
        return -1;
    }
    if (const auto session = ReadPortSession())
        Apply(*session);
    link.Close();
    return static_cast<int>(m_devices.size());
}

void CModuleList::SetDevices(std::vector<DeviceRecord> devices)
{
    m_devices = std::move(devices);
    m_nChosen = m_devices.empty() ? -1 : 0;
}

const DeviceRecord* CModuleList::Chosen() const
{
    return m_nChosen >= 0 && m_nChosen < static_cast<int>(m_devices.size()) ? &m_devices[m_nChosen]
                                                                             : nullptr;
}

DeviceRecord* CModuleList::Chosen()
{
    return const_cast<DeviceRecord*>(std::as_const(*this).Chosen());
}

void CModuleList::Choose(int index)
{
    m_nChosen = index >= 0 && index < static_cast<int>(m_devices.size()) ? index
                : m_devices.empty()                                      ? -1
                                                                         : 0;
}

void CModuleList::ChooseMac(const QString& mac)
{
    const auto it = std::find_if(m_devices.begin(), m_devices.end(),
                                 [&](const DeviceRecord& d) { return d.mac == mac; });
    Choose(it == m_devices.end() ? 0 : static_cast<int>(it - m_devices.begin()));
}

QString CModuleList::ButtonText() const
{
    const DeviceRecord* d = Chosen();
    return d ? d->ip + u'(' + d->name + u')' : QString::fromLatin1(kSearchIpText);
}

void CModuleList::Apply(const PortSession& session)
{
    for (const auto& [mac, name] : session.names) {
        for (DeviceRecord& d : m_devices) {
            if (d.mac == mac)
                d.name = name;
        }
        Remember(mac, name);
    }
    if (session.portText == QLatin1String(kTcpPortText))
        ChooseMac(session.mac);
}

void CModuleList::Remember(const QString& mac, const QString& name)
{
    const auto it = std::find_if(m_knownNames.begin(), m_knownNames.end(),
                                 [&](const auto& known) { return known.first == mac; });
    if (it != m_knownNames.end())
        it->second = name;
    else
        m_knownNames.emplace_back(mac, name);
}

PortSession CModuleList::ForSaving(const QString& portText)
{
    for (const DeviceRecord& d : m_devices)
        Remember(d.mac, d.name);
    PortSession s;
    s.portText = portText;
    if (const DeviceRecord* d = Chosen())
        s.mac = d->mac;
    for (const DeviceRecord& d : m_devices)
        s.names.emplace_back(d.mac, d.name);
    return s;
}

}  // namespace quillon
