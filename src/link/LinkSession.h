#pragma once
// The session's link: the one CDriveSerial the main frame owns, the connect sequence that
// identifies every named station, the disconnect, the ten-second supervision of the linked
// stations, and the identification a link take-over runs without any dialog. The results are
// the session's linked state (SessionState) and the status bar panes.
//
// Everything here runs on the interface thread. The connect sequence and the supervision hand
// their transactions to ILinkWindows::LinkWork, which on the desktop runs them off the interface
// thread; the take-over's identification at start-up sends its frames directly.

#include "base/SessionState.h"
#include "link/DriveSerial.h"

#include <QString>
#include <functional>
#include <memory>

namespace quillon {

class CModuleList;

// What the link needs of the main window.
class ILinkWindows {
public:
    virtual ~ILinkWindows() = default;
    virtual void SetStatusPane(int pane, const QString& text) = 0;
    // Timer 1 of the main frame, which calls CLinkSession::OnLinkWatchTick.
    virtual void StartLinkWatch(int periodMs) = 0;
    virtual void StopLinkWatch() = 0;
    virtual void StopAutoRefresh() = 0;
    // Runs a piece of link work (transactions, the device search; no widget) and returns when it
    // has ended. The desktop runs it off the interface thread and keeps its windows shut to
    // input meanwhile (LinkWork.h); elsewhere it runs at once.
    virtual void LinkWork(const std::function<void()>& job) { job(); }
};

inline constexpr int kLinkWatchPeriodMs = 10000;
inline constexpr const char* kOnlineText = "Online";

// The connection dialog's values at "连接".
struct ConnectRequest {
    QString portText;       // the port list's entry: "COM3" or "TCPIP"
    int baudIndex = 2;      // 0..3: 4800, 9600, 19200, 38400
    int dataBitsIndex = 1;  // 0: 7, 1: 8
    int parityIndex = 2;    // 0 even, 1 odd, 2 none
    int stopBitsIndex = 1;  // 0: 1, 1: 2
    QString stationText;
    // The dialog's modules: the chosen one for "TCPIP", and what PZ4comfile.ini keeps. May be
    // null: then no module is known.
    CModuleList* modules = nullptr;
    // Called once the session is linked, before "Link successful!" is shown.
    std::function<void()> onLinked;
};

// The name the link is opened with: "TCPIP" through a module; otherwise the port text, trimmed,
// with the prefix "\\.\" when it is longer than four characters ("COM12").
QString LinkPortName(const QString& portText, bool tcp);
// The session's port number of a link name: COM number minus one, -1 for "TCPIP", 0 for none.
int SessionPortNumber(const QString& portName);

class CLinkSession {
public:
    CLinkSession(SessionState& session, ILinkWindows& windows);
    ~CLinkSession();  // closes and deletes the link
    CLinkSession(const CLinkSession&) = delete;
    CLinkSession& operator=(const CLinkSession&) = delete;

    // The link object; nullptr when there is none.
    CDriveSerial* Link() const { return m_pLink.get(); }
    // Creates the link object if there is none.
    CDriveSerial& EnsureLink();
    // Closes the link and keeps the object.
    void CloseLink();
    // Closes the link and deletes the object.
    void DeleteLink();

    // The connect sequence. True when the session is linked afterwards; on every failure the
    // person has been told and the session is not linked.
    bool Connect(const ConnectRequest& request);
    // Ends the link and shows "Unlink".
    void Disconnect();
    // Timer 1: reads RegControlWord of each linked station; a station that doesn't answer is
    // dropped with one message, and the link ends when none is left.
    void OnLinkWatchTick();

    // The identification without a dialog, on the open link: 00-02, the model word, capacity
    // and version. Stores the model (widening the code of the 0x110 and 0x111 series), appends
    // the version to the session's list and returns it in `firstVersion`. False, with the
    // message shown, when the drive didn't answer or wasn't recognised.
    bool OpenLink(int station, int& firstVersion);

    SessionState& Session() { return m_session; }
    ILinkWindows& Windows() { return m_windows; }

private:
    // Shows "Can't Open the Port!" with the reason the link gave.
    void ReportOpenFailure();
    bool IdentifyStations(std::vector<int>& failed);
    // Steps 9 to 12 of the sequence: the first station's model word, the question about a
    // model that differs from the project's, the failure list.
    bool AcceptStations(const std::vector<int>& failed);
    void ShowUnlinked();

    SessionState& m_session;
    ILinkWindows& m_windows;
    std::unique_ptr<CDriveSerial> m_pLink;
};

}  // namespace quillon
