#include "link/ConnectDlg.h"

#include "base/ErrorReport.h"
#include "base/Globals.h"
#include "base/Language.h"
#include "base/Prompt.h"
#include "link/AssignIpDlg.h"
#include "link/LinkSession.h"
#include "link/SearchProtocol.h"
#include "link/SetIpDlg.h"
#include "ui/WaitCursor.h"

#include <QButtonGroup>
#include <algorithm>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {
namespace {

const QString kSetIpFailed = QStringLiteral("set IP address failed!");

// A group box of radio buttons, one per caption, laid out in a row.
template <std::size_t N>
QGroupBox* RadioGroup(const QString& title, const std::array<const char*, N>& captions,
                      std::array<QRadioButton*, N>& buttons, QButtonGroup*& group, QWidget* parent)
{
    auto* box = new QGroupBox(title, parent);
    auto* row = new QHBoxLayout(box);
    group = new QButtonGroup(box);
    for (std::size_t i = 0; i < N; ++i) {
        buttons[i] = new QRadioButton(Translated("Caption", captions[i]), box);
        group->addButton(buttons[i], static_cast<int>(i));
        row->addWidget(buttons[i]);
    }
    row->addStretch();
    return box;
}

// Checks the button of `index`; an index out of range checks none.
void Check(QButtonGroup* group, int index)
{
    if (QAbstractButton* b = group->button(index))
        b->setChecked(true);
}

}  // namespace

CConnectDlg::CConnectDlg(CLinkSession& link, QWidget* parent) : QDialog(parent), m_link(link)
{
    setObjectName(QStringLiteral("ConnectDlg"));
    setWindowTitle(Translated("Caption", "连接"));
    BuildControls();
    FillPortList();
    TakeSessionValues();
    ShowModules();
    connect(m_port, &QComboBox::currentIndexChanged, this, Guarded([this](int i) { OnPortChosen(i); }));
    auto* rescan = new QTimer(this);
    connect(rescan, &QTimer::timeout, this, Guarded([this] { RescanPorts(); }));
    rescan->start(kPortRescanMs);
    connect(m_module, &QComboBox::currentIndexChanged, this,
            Guarded([this](int i) { OnModuleChosen(i); }));
    connect(m_ipButton, &QPushButton::clicked, this, Guarded([this] { OnSetIp(); }));
    connect(m_otherButton, &QPushButton::clicked, this, Guarded([this] { OnAssignIp(); }));
    connect(m_connect, &QPushButton::clicked, this, Guarded([this] { OnConnect(); }));
    connect(m_disconnect, &QPushButton::clicked, this, Guarded([this] { OnDisconnect(); }));
    connect(m_close, &QPushButton::clicked, this, Guarded([this] { reject(); }));
    UpdateControls();
    // The stations are what a person types first; "连接" is the default button.
    m_station->setFocus();
}

void CConnectDlg::BuildControls()
{
    auto* portBox = new QGroupBox(Translated("Caption", "通讯端口"), this);
    auto* portGrid = new QGridLayout(portBox);
    m_port = new QComboBox(portBox);
    m_port->setObjectName(QStringLiteral("PortList"));
    m_port->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_module = new QComboBox(portBox);
    m_module->setObjectName(QStringLiteral("ModuleList"));
    m_module->setMinimumContentsLength(static_cast<int>(std::char_traits<char>::length("00-00-00-00-00-00")));
    m_ipButton = new QPushButton(Translated("Caption", "IP设置"), portBox);
    m_otherButton = new QPushButton(Translated("Caption", "其他NX20"), portBox);
    portGrid->addWidget(new QLabel(Translated("Caption", "端口:"), portBox), 0, 0);
    portGrid->addWidget(m_port, 0, 1, 1, 2);
    portGrid->addWidget(new QLabel(QStringLiteral("TCPIP:"), portBox), 1, 0);
    portGrid->addWidget(m_module, 1, 1);
    portGrid->addWidget(m_ipButton, 1, 2);
    portGrid->addWidget(m_otherButton, 2, 2);

    auto* line = new QGridLayout;
    line->addWidget(RadioGroup<4>(Translated("Caption", "波特率"), {"4800", "9600", "19200", "38400"},
                                  m_baud, m_baudGroup, this), 0, 0, 1, 2);
    line->addWidget(RadioGroup<2>(Translated("Caption", "数据位"), {"7位", "8位"}, m_dataBits,
                                  m_dataBitsGroup, this), 1, 0);
    line->addWidget(RadioGroup<3>(Translated("Caption", "校验位"), {"偶", "奇", "无"}, m_parity,
                                  m_parityGroup, this), 1, 1);
    line->addWidget(RadioGroup<2>(Translated("Caption", "停止位"), {"1位", "2位"}, m_stopBits,
                                  m_stopBitsGroup, this), 2, 0);

    auto* stationBox = new QGroupBox(Translated("Caption", "站别"), this);
    auto* stationGrid = new QGridLayout(stationBox);
    m_station = new QLineEdit(stationBox);
    m_station->setObjectName(QStringLiteral("StationEdit"));
    stationGrid->addWidget(new QLabel(Translated("Caption", "站号:"), stationBox), 0, 0);
    stationGrid->addWidget(m_station, 0, 1);
    stationGrid->addWidget(
        new QLabel(Translated("Caption", "(单台或指定范围, 例如: 1,3,5-12)"), stationBox), 1, 0, 1, 2);

    m_connect = new QPushButton(Translated("Caption", "连接"), this);
    m_disconnect = new QPushButton(Translated("Caption", "断开"), this);
    m_close = new QPushButton(Translated("Caption", "关闭"), this);
    m_connect->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* b : {m_connect, m_disconnect, m_close})
        buttons->addWidget(b);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(portBox);
    layout->addLayout(line);
    layout->addWidget(stationBox);
    layout->addLayout(buttons);
}

void CConnectDlg::AddPortItems()
{
    for (const PortEntry& e : m_ports)
        m_port->addItem(PortListText(e), QStringLiteral("COM%1").arg(e.m_nCom));
    m_port->addItem(QString::fromLatin1(kTcpPortText), QString::fromLatin1(kTcpPortText));
}

void CConnectDlg::FillPortList()
{
    m_ports = ScanPorts();
    AddPortItems();
    m_port->setCurrentIndex(std::max(0, m_port->findData(QStringLiteral("COM%1").arg(g_nComPort + 1))));
}

void CConnectDlg::RescanPorts()
{
    if (m_link.Session().m_bOnline)
        return;
    std::vector<PortEntry> now = ScanPorts();
    if (now == m_ports)
        return;
    const QString chosen = PortText();
    {
        const QSignalBlocker quiet(m_port);
        m_port->clear();
        m_ports = std::move(now);
        AddPortItems();
        m_port->setCurrentIndex(std::max(0, m_port->findData(chosen)));
    }
    if (PortText() != chosen)
        OnPortChosen(m_port->currentIndex());
}

void CConnectDlg::TakeSessionValues()
{
    Check(m_baudGroup, g_nBaudIndex);
    Check(m_dataBitsGroup, g_nDataBitsIndex);
    Check(m_parityGroup, g_nParityIndex);
    Check(m_stopBitsGroup, g_nStopBitsIndex);
    m_station->setText(g_strStationList);
    // While linked the fields show what the link uses.
    if (m_link.Session().m_bOnline && m_link.Session().m_bTcpLinked)
        m_port->setCurrentIndex(m_port->count() - 1);
    m_bTcpMode = PortText() == QLatin1String(kTcpPortText);
    // With no serial port at all the list opens on "TCPIP": as if it had been chosen.
    if (m_bTcpMode && !m_link.Session().m_bOnline)
        RefreshModules();
}

QString CConnectDlg::PortText() const
{
    return m_port->currentData().toString();
}

void CConnectDlg::OnPortChosen(int)
{
    if (m_link.Session().m_bOnline)
        return;  // the list is disabled while linked: nothing may touch the link
    m_bTcpMode = PortText() == QLatin1String(kTcpPortText);
    if (m_bTcpMode)
        RefreshModules();
    UpdateControls();
}

void CConnectDlg::OnModuleChosen(int index)
{
    m_modules.Choose(index);
    ShowModules();
}

int CConnectDlg::RefreshModules()
{
    int found = 0;
    {
        CWaitCursor wait;
        CDriveSerial& link = m_link.EnsureLink();
        std::vector<DeviceRecord> devices;
        m_link.Windows().LinkWork([&] { link.DiscoverDevices(devices); });
        found = m_modules.Take(std::move(devices), link);
    }
    const QSignalBlocker block(m_module);
    m_module->clear();
    for (const DeviceRecord& d : m_modules.Devices())
        m_module->addItem(d.mac);
    m_module->setCurrentIndex(m_modules.ChosenIndex());
    ShowModules();
    UpdateControls();
    return found;
}

void CConnectDlg::ShowModules()
{
    QString text = m_modules.ButtonText();
    const CDriveSerial* link = m_link.Link();
    if (m_link.Session().m_bOnline && m_link.Session().m_bTcpLinked && link)
        text = link->peerAddress.AddressText();
    m_ipButton->setText(text);
    m_ipButton->setToolTip(text);
}

void CConnectDlg::UpdateControls()
{
    const bool linked = m_link.Session().m_bOnline != 0;
    const bool modules = m_bTcpMode && !m_modules.Empty();
    m_connect->setEnabled(!linked);
    m_disconnect->setEnabled(linked);
    m_port->setEnabled(!linked);
    m_module->setEnabled(!linked && modules);
    m_ipButton->setEnabled(!linked && modules);
    m_otherButton->setEnabled(!linked && !m_bTcpMode);
    ShowModules();
}

void CConnectDlg::OnConnect()
{
    ConnectRequest request;
    request.portText = PortText();
    request.baudIndex = m_baudGroup->checkedId();
    request.dataBitsIndex = m_dataBitsGroup->checkedId();
    request.parityIndex = m_parityGroup->checkedId();
    request.stopBitsIndex = m_stopBitsGroup->checkedId();
    request.stationText = m_station->text();
    request.modules = &m_modules;
    request.onLinked = [this] { UpdateControls(); };
    m_link.Connect(request);
    UpdateControls();
}

void CConnectDlg::OnDisconnect()
{
    m_link.Disconnect();
    UpdateControls();
}

void CConnectDlg::OnSetIp()
{
    if (m_link.Session().m_bOnline)
        return;
    CDriveSerial& link = m_link.EnsureLink();
    const DeviceRecord* chosen = m_modules.Chosen();
    if (!chosen)
        return;
    const QString mac = chosen->mac;
    CSetIpDlg dlg(chosen->ip, chosen->name, this);
    if (dlg.exec() != QDialog::Accepted)
        return;
    if (dlg.Address() != chosen->ip) {
        CWaitCursor wait;
        bool set = false;
        const QString address = dlg.Address();
        m_link.Windows().LinkWork([&] { set = link.setIPAddress(mac, address); });
        if (!set) {
            Prompt().Message(kSetIpFailed);
        } else if (RefreshModules() > 0) {
            m_modules.ChooseMac(mac);
            const QSignalBlocker block(m_module);
            m_module->setCurrentIndex(m_modules.ChosenIndex());
        }
    }
    link.Close();
    // The name stays on this computer; it reaches the session file at the next good link.
    if (DeviceRecord* record = m_modules.Chosen())
        record->name = dlg.Name();
    ShowModules();
}

void CConnectDlg::OnAssignIp()
{
    if (m_link.Session().m_bOnline)
        return;
    CDriveSerial& link = m_link.EnsureLink();
    CAssignIpDlg dlg(this);
    if (dlg.exec() != QDialog::Accepted)
        return;
    {
        CWaitCursor wait;
        bool set = false;
        const QString mac = dlg.Mac();
        const QString address = dlg.Address();
        const auto restartMs = static_cast<unsigned long>(m_nRestartWaitMs);
        m_link.Windows().LinkWork([&] {
            set = link.setIPAddress(mac, address);
            // The module restarts with its new address before it answers a search again.
            if (set)
                QThread::msleep(restartMs);
        });
        if (!set) {
            Prompt().Message(kSetIpFailed);
        } else if (RefreshModules() > 0) {
            const auto parsed = ParseMac(mac);
            m_modules.ChooseMac(parsed ? MacText(*parsed) : mac);
            const QSignalBlocker block(m_module);
            m_module->setCurrentIndex(m_modules.ChosenIndex());
        }
    }
    link.Close();
    ShowModules();
}

}  // namespace quillon
