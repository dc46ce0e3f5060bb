#pragma once
// The network modules the connection dialog offers: the records of the last search in order of
// arrival, the one chosen, and the names people gave modules, kept in PZ4comfile.ini.

#include "link/DeviceRecord.h"
#include "link/PortSessionFile.h"

#include <QString>
#include <utility>
#include <vector>

namespace quillon {

class CDriveSerial;

inline constexpr const char* kSearchIpText = "Search IP";

class CModuleList {
public:
    // A new search on `link`, which is closed again afterwards: the records, their names and
    // the preselected module from the session file. The number of records, or -1 for none.
    int Refresh(CDriveSerial& link);
    // The same for the records a search on `link` has found (DiscoverDevices, which the caller
    // may run as link work).
    int Take(std::vector<DeviceRecord> found, CDriveSerial& link);

    const std::vector<DeviceRecord>& Devices() const { return m_devices; }
    bool Empty() const { return m_devices.empty(); }
    // The chosen record; nullptr when there is none.
    const DeviceRecord* Chosen() const;
    DeviceRecord* Chosen();
    int ChosenIndex() const { return m_nChosen; }
    void Choose(int index);
    // Chooses the record with `mac`, or the first when it is gone.
    void ChooseMac(const QString& mac);

    // The text of the IP button: "ip(name)" of the chosen record, or "Search IP".
    QString ButtonText() const;

    // Names and preselection from the session file.
    void Apply(const PortSession& session);
    // The session file for a good link on `portText`: the known names are brought up to date
    // from the records, the file itself lists the records found this time only.
    PortSession ForSaving(const QString& portText);

    // The MAC and name pairs known from the session file and from this session.
    const std::vector<std::pair<QString, QString>>& KnownNames() const { return m_knownNames; }

    // Replaces the records (tests, and a search made elsewhere).
    void SetDevices(std::vector<DeviceRecord> devices);

private:
    // The entry of `mac` in the known names takes `name`; a new MAC is appended.
    void Remember(const QString& mac, const QString& name);

    std::vector<DeviceRecord> m_devices;
    std::vector<std::pair<QString, QString>> m_knownNames;
    int m_nChosen = -1;
};

}  // namespace quillon
