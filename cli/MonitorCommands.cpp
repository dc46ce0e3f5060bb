// quillon-cli control and status: the control panel's buttons and the status monitor's pages
// for one station, with the same frames, limits and texts as the windows.

#include "CliCommand.h"
#include "TransferCli.h"

#include "link/LinkResult.h"
#include "link/Registers.h"
#include "monitor/ControlPanel.h"
#include "monitor/FrequencyEdit.h"
#include "monitor/StatusMonitor.h"

#include <chrono>
#include <cstdio>
#include <thread>

namespace quillon::cli {

namespace {

using Clock = std::chrono::steady_clock;

struct ControlAction {
    const char* name;
    std::function<void(CControlPanel&)> run;
};

const ControlAction kActions[] = {
    {"run", [](CControlPanel& p) { p.OnCommand(ControlCommand::Run); }},
    {"stop", [](CControlPanel& p) { p.OnCommand(ControlCommand::Stop); }},
    {"forward", [](CControlPanel& p) { p.OnCommand(ControlCommand::Forward); }},
    {"reverse", [](CControlPanel& p) { p.OnCommand(ControlCommand::Reverse); }},
    {"reset", [](CControlPanel& p) { p.OnCommand(ControlCommand::FaultReset); }},
    // The jog buttons toggle against the polled word: poll once, then press.
    {"jog-forward", [](CControlPanel& p) { p.Tick(); if (p.IsPolling()) p.OnJog(true); }},
    {"jog-reverse", [](CControlPanel& p) { p.Tick(); if (p.IsPolling()) p.OnJog(false); }},
};

// Opens the link of a monitoring command; the options left over go to `rest`.
int OpenMonitorLink(const QString& command, const QStringList& args, LinkOptions& o,
                    QStringList& rest, CDriveSerial& link)
{
    if (const QString error = ParseLinkOptions(command, args, o, rest); !error.isEmpty())
        return UsageError(error);
    return OpenLink(command, o, link) ? kExitOk : kExitFailed;
}

void PrintStatus(const CMonitorPage& status, const CMonitorPage& terminal, QTextStream& out)
{
    for (const MeasuredValue& v : MeasuredValues())
        out << v.name << '\t' << ValueText(v, status.Word(v.index)) << '\n';
    const std::uint16_t word = status.StatusWord();
    out << "running\t" << ((word & StatusBit::Running) ? "yes" : "no") << '\n'
        << "direction\t" << ((word & StatusBit::Reverse) ? "reverse" : "forward") << '\n'
        << "ready\t" << ((word & StatusBit::Ready) ? "yes" : "no") << '\n'
        << "abnormal\t" << ((word & StatusBit::Abnormal) ? "yes" : "no") << '\n';
    const FaultTexts fault = FaultTextsOf(status.FaultCode());
    out << "fault code\t" << status.FaultCode() << '\t' << fault.display << '\t'
        << fault.description << '\n';
    for (const Terminal& t : Terminals())
        out << "terminal " << t.name << '\t' << ((terminal.TerminalWord() >> t.bit) & 1) << '\n';
}

// Why a page stopped polling.
int PollFailure(const CMonitorPage& page)
{
    if (page.LastResult() != ErrNone)
        std::fprintf(stderr, "status: %s\n", ErrTypeText(page.LastResult()).toUtf8().constData());
    return kExitFailed;
}

}  // namespace

int RunControl(const QStringList& args, QTextStream&)
{
    const QString command = QStringLiteral("control");
    LinkOptions o;
    QStringList rest;
    CDriveSerial link;
    if (const int rc = OpenMonitorLink(command, args, o, rest, link); rc != kExitOk)
        return rc;
    CDirectRunner runner([&link] { return &link; });
    CControlPanel panel(runner, {o.station}, 0);
    if (rest.size() == 2 && rest[0] == QLatin1String("freq")) {
        if (FilterFrequencyText(QString(), rest[1]) != rest[1] || rest[1].isEmpty())
            return UsageError(QStringLiteral("control: freq takes hertz from 0 to 1200 with at "
                                             "most two decimals, e.g. 30.00"));
        panel.OnFrequencyEdited(rest[1]);
        panel.OnSet();
        return panel.Failures() == 0 ? kExitOk : kExitFailed;
    }
    for (const ControlAction& a : kActions) {
        if (rest.size() == 1 && rest[0] == QLatin1String(a.name)) {
            a.run(panel);
            return panel.Failures() == 0 && panel.IsPolling() ? kExitOk : kExitFailed;
        }
    }
    return UsageError(rest.isEmpty() ? QStringLiteral("control: give an action")
                                     : QStringLiteral("control: unknown action '%1'").arg(rest.join(u' ')));
}

int RunStatus(const QStringList& args, QTextStream& out)
{
    const QString command = QStringLiteral("status");
    LinkOptions o;
    QStringList rest;
    CDriveSerial link;
    int watchSeconds = 0;
    QString error;
    if (const auto watch = OptionValue(args, QStringLiteral("--watch"), error)) {
        bool ok = false;
        watchSeconds = watch->toInt(&ok);
        if (!ok || watchSeconds < 1 || watchSeconds > 86400)
            return UsageError(QStringLiteral("status: --watch takes seconds from 1 to 86400"));
    } else if (!error.isEmpty()) {
        return UsageError(QStringLiteral("status: ") + error);
    }
    QStringList linkArgs = args;
    if (const qsizetype i = linkArgs.indexOf(QStringLiteral("--watch")); i >= 0)
        linkArgs.remove(i, 2);
    if (const int rc = OpenMonitorLink(command, linkArgs, o, rest, link); rc != kExitOk)
        return rc;
    if (!rest.isEmpty())
        return UsageError(QStringLiteral("status: unknown argument '%1'").arg(rest.front()));

    CDirectRunner runner([&link] { return &link; });
    CStatusMonitor monitor(runner, {o.station}, 0);
    CMonitorPage& status = monitor.StatusPage();
    CMonitorPage& terminal = monitor.TerminalPage();
    monitor.Start();
    const auto poll = [&] {
        status.Tick();
        terminal.Tick();
        return status.IsPolling() && terminal.IsPolling();
    };
    if (watchSeconds == 0) {
        if (!poll())
            return PollFailure(status.IsPolling() ? terminal : status);
        PrintStatus(status, terminal, out);
        return kExitOk;
    }

    // One block per 400 ms poll, each due at a fixed time from the start, so a slow exchange
    // delays only its own poll and the period doesn't drift.
    const auto period = std::chrono::milliseconds(kStatusPollPeriodMs);
    const Clock::time_point t0 = Clock::now();
    const Clock::time_point end = t0 + std::chrono::seconds(watchSeconds);
    int polls = 0, missed = 0;
    Clock::time_point first{}, last{};
    for (int n = 0; t0 + n * period < end; ++n) {
        const Clock::time_point due = t0 + n * period;
        if (Clock::now() >= due + period) {
            ++missed;  // its time went by while the last one ran
            continue;
        }
        std::this_thread::sleep_until(due);
        const Clock::time_point started = Clock::now();
        if (!poll())
            return PollFailure(status.IsPolling() ? terminal : status);
        (polls == 0 ? first : last) = started;
        ++polls;
        out << "poll\t" << polls << '\t'
            << std::chrono::duration_cast<std::chrono::milliseconds>(started - t0).count() << " ms\n";
        PrintStatus(status, terminal, out);
        out << '\n';
        out.flush();
    }
    const double mean =
        polls > 1 ? std::chrono::duration<double, std::milli>(last - first).count() / (polls - 1) : 0.0;
    std::fprintf(stderr, "status: %d polls in %d s, mean period %.2f ms, %d missed\n", polls,
                 watchSeconds, mean, missed);
    return missed == 0 ? kExitOk : kExitFailed;
}

}  // namespace quillon::cli
