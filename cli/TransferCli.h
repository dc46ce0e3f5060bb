#pragma once
// What the read and write commands of quillon-cli share: the link options, opening the link, and
// the windows of the transfer as a terminal has them (a progress bar on stderr when stderr is a
// terminal, the list of motor parameters left out as lines on stderr).

#include "base/SessionState.h"
#include "link/DriveSerial.h"
#include "params/M330Doc.h"
#include "transfer/FleetBackup.h"
#include "transfer/HeadlessWindows.h"

#include <QString>
#include <QStringList>
#include <chrono>
#include <memory>
#include <vector>

namespace quillon::cli {

struct LinkOptions : LinkTarget {
    int station = 0;
};

// Takes the link options out of `args` (--port COMn | --tcp HOST[:PORT], --station N, --baud,
// --data, --parity, --stop, --log-frames FILE) and leaves the rest in `rest`. An empty text on
// success, else what is wrong, prefixed with `command`. --log-frames starts the frame log into
// FILE for the rest of the command.
QString ParseLinkOptions(const QString& command, const QStringList& args, LinkOptions& options,
                         QStringList& rest);

// Whether `name` is a link option that takes a value, and that option applied to `o`: an empty
// text, or what is wrong prefixed with `command`. For commands that take several links.
bool IsLinkOption(const QString& name);
QString ApplyLinkOption(const QString& command, const QString& name, const QString& value,
                        LinkOptions& o);

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
class CCliWindows final : public CHeadlessWindows, private IProgress {
public:
    using CHeadlessWindows::CHeadlessWindows;

    IProgress& Progress() override { return *this; }
    void ShowUnwrittenParams(const std::vector<MotorParam>& params) override;

private:
    // IProgress: a bar on stderr when it is a terminal.
    bool IsVisible() const override { return m_bVisible; }
    void Show(const QString& title) override;
    void Hide() override;
    void SetRange(int lower, int upper) override;
    void SetPos(int pos) override;
    void SetLabel(const QString& label) override;
    void Draw();

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
