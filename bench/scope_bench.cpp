// scope_bench: what the graph watch costs while it draws.
//
// 1. One full redraw of the scope at 1000 x 400 pixels with four curves of 600 samples (the
//    default window of one minute at 100 ms) and of 60,000 samples (a long division), the cursor
//    in the plot so the readouts are found too. Each drawn 50 times into an image; the median of
//    the drawing thread's CPU time and of the wall time.
// 2. The graph window sampling r770-sim (--wire-timing, 19200 baud, on a pseudo-terminal) each
//    100 ms with the 10 ms repaint tick running, shown on the offscreen platform for a while;
//    the CPU time of this process (all its threads, user + system, from getrusage) over the
//    wall time, as a share of one core.

#include "link/DriveSerial.h"
#include "link/PortMap.h"
#include "monitor/GraphDlg.h"
#include "monitor/ScopeWnd.h"
#include "sim/ChildProcess.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimer>

#include <sys/resource.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

namespace {

using namespace quillon;

// Four curves of `samples` each, 100 ms apart, the window just holding them.
void Fill(CGraphRecorder& recorder, int samples)
{
    GraphSettings s;
    s.channelName = {"Output Frequency", "Set Frequency", "Output Current", "Output Voltage"};
    recorder.ApplySettings(s);
    recorder.SetDivisionMs(samples * 100 / kGraphDivisions + kDivisionStepMs);
    GraphSampleRow row;
    for (int i = 0; i < samples; ++i) {
        row.tick = i * 0.1;
        row.timeText = ClockText(i * 100);
        for (int c = 0; c < kGraphChannels; ++c) {
            row.samples[c] = 500.0 + 450.0 * std::sin(i * 0.01 * (c + 1)) + (i * 37 % 11) * 3.0;
            row.valueTexts[c] = QString::number(row.samples[c] / 100.0, 'f', 2);
        }
        recorder.AppendSample(row);
    }
}

double ThreadCpuMs()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
}

double Median(std::vector<double> v)
{
    std::nth_element(v.begin(), v.begin() + v.size() / 2, v.end());
    return v[v.size() / 2];
}

struct Redraw {
    double wallMs;
    double cpuMs;
};

Redraw MedianRedraw(int samples)
{
    CDirectRunner runner({});
    CGraphRecorder recorder(runner);
    Fill(recorder, samples);
    CScopeWnd scope(recorder, nullptr);
    scope.resize(1000, 400);
    const QRect plot = LayoutScope(scope.rect()).plot;
    const QPointF at(plot.x() + plot.width() / 3, plot.y() + 50);
    QMouseEvent move(QEvent::MouseMove, at, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&scope, &move);
    QImage image(scope.size(), QImage::Format_ARGB32_Premultiplied);
    std::vector<double> wall, cpu;
    for (int run = 0; run < 50; ++run) {
        QElapsedTimer t;
        t.start();
        const double cpu0 = ThreadCpuMs();
        QPainter p(&image);
        scope.PaintScope(p);
        p.end();
        cpu.push_back(ThreadCpuMs() - cpu0);
        wall.push_back(t.nsecsElapsed() / 1.0e6);
    }
    return {Median(wall), Median(cpu)};
}

double CpuSeconds()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_utime.tv_sec + u.ru_utime.tv_usec / 1e6 + u.ru_stime.tv_sec + u.ru_stime.tv_usec / 1e6;
}

}  // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    int seconds = 20;
    for (int i = 1; i + 1 < argc; i += 2)
        if (QLatin1String(argv[i]) == QLatin1String("--seconds"))
            seconds = std::max(2, std::atoi(argv[i + 1]));

    // The machine is shared: the wall time includes waits for a core, the thread's CPU time is
    // what the redraw itself costs. Both are printed; the limits hold against the CPU time.
    const Redraw small = MedianRedraw(600);
    const Redraw large = MedianRedraw(60000);
    std::printf("redraw_1000x400_4x600_median_ms cpu %.3f wall %.3f (limit 1)\n", small.cpuMs,
                small.wallMs);
    std::printf("redraw_1000x400_4x60000_median_ms cpu %.3f wall %.3f (limit 5)\n", large.cpuMs,
                large.wallMs);

    QTemporaryDir dir;
    const QString pty = dir.filePath(QStringLiteral("drive"));
    sim::ChildProcess sim({R770_SIM, "--pty", pty.toStdString(), "--wire-timing", "--baud", "19200",
                           "--stop-bits", "2", "--parity", "none"});
    if (sim.WaitForLine("ready", std::chrono::seconds(10)).empty()) {
        std::fprintf(stderr, "scope_bench: r770-sim did not start\n");
        return 1;
    }
    qputenv(kPortsEnvVar, QStringLiteral("COM1=%1").arg(pty).toLocal8Bit());
    CDriveSerial link;
    if (!link.InitComm(QStringLiteral("COM1"), 19200, 8, 0, 2.0f)) {
        std::fprintf(stderr, "scope_bench: can't open the simulated drive's line\n");
        return 1;
    }
    MonitorContext context;
    context.stations = {1};
    context.link = [&link] { return &link; };
    context.linked = [] { return true; };
    GraphSettings session;
    session.channelName = {"Output Frequency", "Set Frequency", "Output Current", "Output Voltage"};
    CGraphDlg dlg(context, session);
    dlg.resize(1060, 560);
    dlg.show();
    dlg.Action(QStringLiteral("Start"))->trigger();
    // Let the first samples come, then measure.
    QElapsedTimer wall;
    double cpuShare = 100.0;
    QTimer::singleShot(1000, Qt::PreciseTimer, [&] {
        wall.start();
        const double cpu0 = CpuSeconds();
        QTimer::singleShot(seconds * 1000, Qt::PreciseTimer, [&, cpu0] {
            const double cpu = CpuSeconds() - cpu0;
            const double elapsed = wall.nsecsElapsed() / 1e9;
            cpuShare = 100.0 * cpu / elapsed;
            std::printf("sampling_samples %d\n", dlg.Recorder().Store().Count(0));
            std::printf("sampling_cpu_percent_of_one_core %.2f (cpu %.3f s over %.1f s wall; "
                        "limit 5)\n", cpuShare, cpu, elapsed);
            app.quit();
        });
    });
    app.exec();
    const bool ok = small.cpuMs <= 1.0 && large.cpuMs <= 5.0 && cpuShare <= 5.0;
    return ok ? 0 : 1;
}
