#pragma once
// "连接": where the person chooses the port, the line settings and the stations, and opens and
// closes the link. Through "TCPIP" it finds network modules and sets their addresses. The
// sequences themselves are CLinkSession's and CModuleList's; the dialog gathers the values and
// keeps its controls in step with the linked state.

#include "link/ModuleList.h"
#include "link/PortMap.h"

#include <QDialog>
#include <array>
#include <vector>

class QButtonGroup;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace quillon {

class CLinkSession;

// How long the dialog lets a module restart after it was given an address.
inline constexpr int kModuleRestartMs = 5000;
// While the dialog is open the serial ports are listed again this often, so that an adapter
// plugged in (or pulled out) shows without a restart.
inline constexpr int kPortRescanMs = 2000;

class CConnectDlg : public QDialog {
    Q_OBJECT
public:
    explicit CConnectDlg(CLinkSession& link, QWidget* parent = nullptr);

    QComboBox* PortList() const { return m_port; }
    QComboBox* ModuleList() const { return m_module; }
    QPushButton* IpButton() const { return m_ipButton; }
    QPushButton* OtherModuleButton() const { return m_otherButton; }
    QRadioButton* BaudButton(int index) const { return m_baud[index]; }
    QRadioButton* DataBitsButton(int index) const { return m_dataBits[index]; }
    QRadioButton* ParityButton(int index) const { return m_parity[index]; }
    QRadioButton* StopBitsButton(int index) const { return m_stopBits[index]; }
    QLineEdit* StationEdit() const { return m_station; }
    QPushButton* ConnectButton() const { return m_connect; }
    QPushButton* DisconnectButton() const { return m_disconnect; }
    QPushButton* CloseButton() const { return m_close; }
    const CModuleList& Modules() const { return m_modules; }
    bool TcpMode() const { return m_bTcpMode; }

    // The COM name or "TCPIP" of the port list's entry.
    QString PortText() const;

    void OnConnect();
    void OnDisconnect();
    void OnSetIp();
    void OnAssignIp();
    // The re-scan of kPortRescanMs: the port list filled again when the system's ports changed,
    // the chosen entry kept where it still exists. Nothing while linked.
    void RescanPorts();

    // The wait after an address was assigned; kModuleRestartMs unless changed.
    void SetModuleRestartWait(int ms) { m_nRestartWaitMs = ms; }

private:
    void BuildControls();
    void FillPortList();
    void AddPortItems();
    void TakeSessionValues();
    void OnPortChosen(int index);
    void OnModuleChosen(int index);
    // The device list refresh: a new search, the drop-down and the IP button.
    int RefreshModules();
    void ShowModules();
    void UpdateControls();

    CLinkSession& m_link;
    CModuleList m_modules;
    std::vector<PortEntry> m_ports;  // the serial ports the list shows
    bool m_bTcpMode = false;
    int m_nRestartWaitMs = kModuleRestartMs;

    QComboBox* m_port = nullptr;
    QComboBox* m_module = nullptr;
    QPushButton* m_ipButton = nullptr;
    QPushButton* m_otherButton = nullptr;
    std::array<QRadioButton*, 4> m_baud{};
    std::array<QRadioButton*, 2> m_dataBits{};
    std::array<QRadioButton*, 3> m_parity{};
    std::array<QRadioButton*, 2> m_stopBits{};
    QButtonGroup* m_baudGroup = nullptr;
    QButtonGroup* m_dataBitsGroup = nullptr;
    QButtonGroup* m_parityGroup = nullptr;
    QButtonGroup* m_stopBitsGroup = nullptr;
    QLineEdit* m_station = nullptr;
    QPushButton* m_connect = nullptr;
    QPushButton* m_disconnect = nullptr;
    QPushButton* m_close = nullptr;
};

}  // namespace quillon
