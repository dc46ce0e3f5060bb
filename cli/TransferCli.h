#pragma once
// What the read and write commands of quillon-cli share: the link options, opening the link, and
// the windows of the transfer as a terminal has them (a progress bar on stderr when stderr is a
// terminal, the list of motor parameters left out as lines on stderr).

#include "base/SessionState.h"
#include "link/DriveSerial.h"
#include "params/M330Doc.h"
#include "transfer/TransferWindows.h"

#include <QString>
#include <QStringList>
#include <chrono>
#include <memory>
#include <vector>

namespace quillon::cli {

struct LinkOptions {
    QString port;  // "COMn", or "TCPIP" with `peer`
    PeerAddress peer;
    int station = 0;
    int baud = 19200;
    int dataBits = 8;
    int parity = 0;  // as InitComm takes it: 0 none, 1 odd, 2 even
    int stopBits = 2;
};

// Takes the link options out of `args` (--port COMn | --tcp HOST[:PORT], --station N, --baud,
// --data, --parity, --stop) and leaves the rest in `rest`. An empty text on success, else what
// is wrong, prefixed with `command`.
QString ParseLinkOptions(const QString& command, const QStringList& args, LinkOptions& options,
                         QStringList& rest);

// A link that notes every transaction it runs, so that a command can set its time against what
// the line needs for the same frames.
class CNotedLink final : public CDriveSerial {
public:
    ErrType CommandSend(const unsigned char* tx, unsigned long txLength, unsigned char* rx,
                        unsigned long rxLength) override;

    struct Exchange {
        unsigned long request;
        unsigned long reply;
    };
    const std::vector<Exchange>& Exchanges() const { return m_exchanges; }

private:
    std::vector<Exchange> m_exchanges;
};

// What a command took against what the line needs for the same frames at the same baud rate
// (the bytes both ways, the silence that ends each request, the drive's turnaround), on stderr:
// "timing: frames N, WHAT S s, wire minimum W s, ratio R"; with `pauseSeconds`, the pauses the
// program must keep between frames (SendFrame's pacing), a second line against both.
void PrintWireTiming(const CNotedLink& link, int baud, const char* what, double seconds,
                     double pauseSeconds = 0.0);

// Opens `link` as the options say; false with the reason on stderr.
bool OpenLink(const QString& command, const LinkOptions& options, CDriveSerial& link);

// The transfer's windows in a terminal.
class CCliWindows final : public ITransferWindows, private IProgress {
public:
    CCliWindows(SessionState& session, CDriveSerial& link) : m_session(session), m_link(link) {}

    // A project of this command from now on.
    void SetDocument(std::unique_ptr<CM330Doc> doc) { m_doc = std::move(doc); }

    IProgress& Progress() override { return *this; }
    void SetStatusPane(int, const QString&) override {}
    void RefreshList() override {}
    CM330Doc* Document() override { return m_doc.get(); }
    CM330Doc* NewDocumentForDrive() override;
    bool SaveProject() override { return false; }
    CDriveSerial* Link() override { return &m_link; }
    void DeleteLink() override { m_link.Close(); }
    void ShowUnwrittenParams(const std::vector<MotorParam>& params) override;
    void SetRefreshTimer(bool) override {}
    std::optional<QString> AskPasswordSet() override { return std::nullopt; }
    std::optional<ChangePasswordEntry> AskChangePassword() override { return std::nullopt; }
    std::optional<QString> AskPasswordInput() override { return std::nullopt; }

private:
    // IProgress: a bar on stderr when it is a terminal.
    bool IsVisible() const override { return m_bVisible; }
    void Show(const QString& title) override;
    void Hide() override;
    void SetRange(int lower, int upper) override;
    void SetPos(int pos) override;
    void SetLabel(const QString& label) override;
    void Draw();

    SessionState& m_session;
    CDriveSerial& m_link;
    std::unique_ptr<CM330Doc> m_doc;
    bool m_bVisible = false;
    bool m_bTerminal = false;
    int m_nLower = 0;
    int m_nUpper = 0;
    int m_nPos = 0;
    QString m_strLabel;
};

// The session of a command: program directory, the linked station.
void PrepareSession(SessionState& session, int station);

}  // namespace quillon::cli
