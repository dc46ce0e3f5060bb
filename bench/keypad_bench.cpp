// keypad_bench: the keypad's tick against the line.
//
// r770-sim plays one drive on a pseudo-terminal with --wire-timing (8N2, 19200 baud unless
// --baud says otherwise). First the tick alone, run directly: the median of several ticks set
// against the wire minimum of its frames (bytes both ways, the silence that ends each request,
// the drive's turnaround), and against that minimum plus the 10 ms pause SendFrame keeps
// before three of the four frames. Then the keypad as the window runs it, for --seconds: its
// exchanges on the worker, a 100 ms timer on this thread; it prints how many ticks ran, their
// mean time, how many timer shots found a tick still under way (the tick they asked for ran
// when that one ended), and the most jobs ever waiting for the worker (1: ticks never piled up).
//
// Usage: keypad_bench [--baud N] [--seconds S] [--sim PATH]

#include "link/DriveSerial.h"
#include "link/PortMap.h"
#include "monitor/KeyPad.h"
#include "monitor/WorkerRunner.h"
#include "sim/ChildProcess.h"
#include "sim/WireTiming.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

using namespace quillon;

namespace {

using Clock = std::chrono::steady_clock;

// The link, noting the length of every exchange for the wire minimum.
class CNotingLink final : public CDriveSerial {
public:
    ErrType CommandSend(const unsigned char* tx, unsigned long txLength, unsigned char* rx,
                        unsigned long rxLength) override
    {
        lengths.emplace_back(static_cast<int>(txLength), static_cast<int>(rxLength));
        return CDriveSerial::CommandSend(tx, txLength, rx, rxLength);
    }
    std::vector<std::pair<int, int>> lengths;
};

// A runner that counts the jobs handed to it and not yet completed.
class CCountingRunner final : public IExchangeRunner {
public:
    explicit CCountingRunner(IExchangeRunner& inner) : m_inner(inner) {}
    void Run(LinkWork work, LinkDone done) override
    {
        maxPending = std::max(maxPending, ++pending);
        m_inner.Run(std::move(work), [this, done = std::move(done)] {
            --pending;
            done();
        });
    }
    int pending = 0;
    int maxPending = 0;

private:
    IExchangeRunner& m_inner;
};

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    int baud = 19200;
    int seconds = 30;
    std::string simPath = R770_SIM;
    const QStringList args = app.arguments();
    for (int i = 1; i + 1 < args.size(); i += 2) {
        if (args[i] == QLatin1String("--baud"))
            baud = args[i + 1].toInt();
        else if (args[i] == QLatin1String("--seconds"))
            seconds = std::max(1, args[i + 1].toInt());
        else if (args[i] == QLatin1String("--sim"))
            simPath = args[i + 1].toStdString();
    }

    QTemporaryDir dir;
    const QString pty = dir.filePath(QStringLiteral("drive"));
    sim::ChildProcess sim({simPath, "--pty", pty.toStdString(), "--wire-timing", "--baud",
                           std::to_string(baud), "--stop-bits", "2", "--parity", "none"});
    if (sim.WaitForLine("ready", std::chrono::seconds(10)).empty()) {
        std::fprintf(stderr, "keypad_bench: r770-sim did not start\n");
        return 1;
    }
    qputenv(kPortsEnvVar, QStringLiteral("COM1=%1").arg(pty).toLocal8Bit());
    CNotingLink link;
    if (!link.InitComm(QStringLiteral("COM1"), static_cast<unsigned long>(baud), 8, 0, 2.0f)) {
        std::fprintf(stderr, "keypad_bench: %s\n", qPrintable(link.OpenFailureDetail()));
        return 1;
    }

    // One tick, run directly.
    CDirectRunner direct([&link] { return &link; });
    CKeyPad alone(direct, {1}, 0);
    std::vector<double> times;
    for (int run = 0; run < 11 && alone.IsPolling(); ++run) {
        link.lengths.clear();
        const auto t0 = Clock::now();
        alone.Tick(false);
        times.push_back(std::chrono::duration<double>(Clock::now() - t0).count());
    }
    if (!alone.IsPolling()) {
        std::fprintf(stderr, "keypad_bench: a tick failed\n");
        return 1;
    }
    std::sort(times.begin(), times.end());
    const sim::WireTiming line{baud, sim::kDefaultTurnaroundMs};
    double wire = 0.0;
    for (const auto& [request, reply] : link.lengths)
        wire += line.ExchangeSeconds(request, reply);
    const double paced = wire + 3 * kSendFramePauseMs / 1000.0;
    const double tick = times[times.size() / 2];
    std::printf("baud %d\nframes_per_tick %zu\n", baud, link.lengths.size());
    std::printf("tick_s %.4f\nwire_min_s %.4f\nratio_to_wire %.3f\n", tick, wire, tick / wire);
    std::printf("wire_with_sendframe_pauses_s %.4f\nratio_to_paced_wire %.3f\n", paced, tick / paced);

    // The window's way: a 100 ms timer, the exchanges on the worker.
    CWorkerRunner worker([&link] { return &link; });
    CCountingRunner runner(worker);
    CKeyPad keypad(runner, {1}, 0);
    int ticks = 0, shots = 0, busyShots = 0;
    double total = 0.0;
    Clock::time_point started;
    bool ticking = false;
    const auto startTick = [&] {
        started = Clock::now();
        ticking = true;
        keypad.Tick(false);
    };
    keypad.onChanged = [&] {
        if (ticking && !keypad.IsTicking()) {
            ticking = false;
            ++ticks;
            total += std::chrono::duration<double>(Clock::now() - started).count();
        }
    };
    keypad.onTickDue = startTick;
    QTimer timer;
    timer.setInterval(kKeyPadPollPeriodMs);
    QObject::connect(&timer, &QTimer::timeout, [&] {
        ++shots;
        if (keypad.IsTicking()) {
            ++busyShots;
            keypad.Tick(false);  // only notes that a tick is due
            return;
        }
        startTick();
    });
    timer.start();
    QTimer::singleShot(seconds * 1000, &app, [&] {
        timer.stop();
        app.quit();
    });
    app.exec();
    std::printf("run_s %d\ntimer_shots %d\nticks %d\nmean_tick_s %.4f\nshots_while_ticking %d\n"
                "max_jobs_pending %d\npolling %d\n",
                seconds, shots, ticks, ticks ? total / ticks : 0.0, busyShots, runner.maxPending,
                keypad.IsPolling() ? 1 : 0);
    return keypad.IsPolling() ? 0 : 1;
}
