// quillon-cli record: the graph window's recorder without the window. Up to four channels by
// their list names, one read of the monitor block each 100 ms tick, the samples written as a
// graph CSV file. Ctrl-C ends the recording early and still writes what was sampled.

#include "CliCommand.h"
#include "TransferCli.h"

#include "exchange/CsvText.h"
#include "monitor/GraphRecorder.h"
#include "monitor/GraphStoreData.h"
#include "sim/WireTiming.h"

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <thread>

namespace quillon::cli {
namespace {

using Clock = std::chrono::steady_clock;

std::atomic<bool> g_bInterrupted{false};
extern "C" void OnInterrupt(int) { g_bInterrupted = true; }

// Ctrl-C sets a flag for the recording loop while the recording runs.
class InterruptGuard {
public:
    InterruptGuard() : m_previous(std::signal(SIGINT, OnInterrupt)) { g_bInterrupted = false; }
    ~InterruptGuard() { std::signal(SIGINT, m_previous); }
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

private:
    void (*m_previous)(int);
};

struct RecordOptions {
    int seconds = 0;
    QStringList channels;
    QString output;
};

// Takes --seconds, --channel and -o out of `args`; an empty text on success.
QString ParseRecordOptions(QStringList& args, RecordOptions& r)
{
    for (qsizetype i = 0; i < args.size();) {
        const QString name = args[i];
        if (name != QLatin1String("--seconds") && name != QLatin1String("--channel") &&
            name != QLatin1String("-o")) {
            ++i;
            continue;
        }
        if (i + 1 >= args.size())
            return QStringLiteral("record: option %1 needs a value").arg(name);
        const QString value = args[i + 1];
        args.remove(i, 2);
        if (name == QLatin1String("-o")) {
            r.output = value;
        } else if (name == QLatin1String("--seconds")) {
            bool ok = false;
            r.seconds = value.toInt(&ok);
            if (!ok || r.seconds < 1 || r.seconds > 86400)
                return QStringLiteral("record: --seconds takes 1 to 86400");
        } else {
            const int entry = ChannelListIndex(value);
            if (ChannelListEntries()[entry].compare(value, Qt::CaseInsensitive) != 0)
                return QStringLiteral("record: no channel '%1'; the channels are: %2")
                    .arg(value, ChannelListEntries().join(QStringLiteral(", ")));
            if (r.channels.size() == kGraphChannels)
                return QStringLiteral("record: at most four channels");
            r.channels << ChannelListEntries()[entry];
        }
    }
    if (r.seconds == 0 || r.output.isEmpty())
        return QStringLiteral("record: give --seconds and -o FILE.csv");
    return {};
}

// How many samples a second the line lets through: one a tick, unless an exchange (the bytes
// both ways, the silence after the request, the drive's turnaround and the pause before each
// frame) takes longer than the tick.
double ExchangeSeconds(int baud)
{
    const sim::WireTiming line{baud, sim::kDefaultTurnaroundMs};
    return line.ExchangeSeconds(kRequestLength, 5 + 2 * kGraphReadCount) + kSendFramePauseMs / 1000.0;
}
double LineSampleRate(int baud) { return std::min(1000.0 / kGraphTickMs, 1.0 / ExchangeSeconds(baud)); }

}  // namespace

int RunRecord(const QStringList& args, QTextStream&)
{
    RecordOptions r;
    QStringList rest = args;
    if (const QString error = ParseRecordOptions(rest, r); !error.isEmpty())
        return UsageError(error);
    LinkOptions o;
    QStringList unknown;
    if (const QString error = ParseLinkOptions(QStringLiteral("record"), rest, o, unknown);
        !error.isEmpty())
        return UsageError(error);
    if (!unknown.isEmpty())
        return UsageError(QStringLiteral("record: unknown argument '%1'").arg(unknown.front()));
    CDriveSerial link;
    if (!OpenLink(QStringLiteral("record"), o, link))
        return kExitFailed;

    if (r.channels.isEmpty())
        r.channels = {QStringLiteral("Set Frequency"), QStringLiteral("Output Frequency"),
                      QStringLiteral("Output Voltage"), QStringLiteral("Output Current")};
    GraphSettings settings;
    settings.station = o.station;
    for (int c = 0; c < r.channels.size(); ++c) {
        settings.channelName[c] = r.channels[c];
        settings.channelIndex[c] = ChannelListIndex(r.channels[c]);
    }
    CDirectRunner runner([&link] { return &link; });
    CGraphRecorder recorder(runner);
    recorder.ApplySettings(settings);
    // A window long enough for the whole recording, so no sample is dropped.
    recorder.SetDivisionMs((r.seconds * 1000 + kGraphTickMs) / kGraphDivisions + kDivisionStepMs);

    const bool terminal = ::isatty(STDERR_FILENO) != 0;
    const auto tick = std::chrono::milliseconds(kGraphTickMs);
    const Clock::time_point t0 = Clock::now();
    const Clock::time_point end = t0 + std::chrono::seconds(r.seconds);
    recorder.Start();
    {
        InterruptGuard guard;
        // Each tick is due at a fixed time from the start, as a timer would fire it.
        for (int n = 1; t0 + n * tick <= end && recorder.IsRunning() && !g_bInterrupted; ++n) {
            std::this_thread::sleep_until(t0 + n * tick);
            if (g_bInterrupted)
                break;
            recorder.Tick();
            if (terminal)
                std::fprintf(stderr, "\rrecording %.1f s of %d, %d samples", n * 0.1, r.seconds,
                             recorder.Store().Count(0));
        }
        if (terminal)
            std::fprintf(stderr, "\n");
    }
    const bool failed = !recorder.IsRunning();
    recorder.Stop();

    const CGraphStore& store = recorder.Store();
    QString error;
    if (!WriteWholeFile(r.output, ExportGraphCsv(GraphDataOf(store, settings)), &error)) {
        std::fprintf(stderr, "record: can't write %s: %s\n", r.output.toUtf8().constData(),
                     error.toUtf8().constData());
        return kExitFailed;
    }
    const int samples = store.Count(0);
    const double span = samples > 1 ? store.curveTimes[0].back() - store.curveTimes[0].front() : 0.0;
    const double achieved = span > 0 ? (samples - 1) / span : 0.0;
    const double allowed = LineSampleRate(o.baud);
    std::fprintf(stderr,
                 "record: %d samples%s; achieved %.2f samples/s, %.1f %% of the %.2f samples/s the "
                 "line allows (an exchange needs %.1f ms at %d baud; a tick each %d ms)\n",
                 samples, g_bInterrupted ? " (interrupted)" : "", achieved,
                 100.0 * achieved / allowed, allowed, 1000.0 * ExchangeSeconds(o.baud), o.baud,
                 kGraphTickMs);
    return failed ? kExitFailed : kExitOk;
}

}  // namespace quillon::cli
