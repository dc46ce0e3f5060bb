// link_bench: how close the link comes to the line.
//
// r770-sim plays one drive on a pseudo-terminal at 19200 baud 8N2 with --wire-timing, so each
// reply arrives when it would on a real line. The 26 frames of a full group read are run by
// our CDriveSerial and, on the same schedule, by a libmodbus master; each time is the median
// of several runs, the two masters taking turns, and ratio_to_libmodbus is the median of the
// ratios of the runs taken side by side, so that a change in the machine's load between runs
// weighs on both masters alike. The wire minimum is what the bytes, the
// silence that ends each request and the drive's turnaround need on the line. The exception
// reply is a 21-register read of a hole, answered with five bytes: it must not wait for 47.
//
// Usage: link_bench [--runs N] [--sim PATH]

#include "link/DriveSerial.h"
#include "link/ModbusFrame.h"
#include "link/PortMap.h"
#include "sim/ChildProcess.h"
#include "sim/WireTiming.h"
#include "transfer/ReadLayout.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <modbus/modbus.h>
#include <vector>

using namespace quillon;

namespace {

constexpr int kBaud = 19200;
constexpr int kStation = 1;
constexpr std::uint16_t kHole = 0x0207;  // 02-07: no register there
constexpr int kHoleCount = 21;

using Clock = std::chrono::steady_clock;

double Median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    const std::size_t n = v.size();
    return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

// Seconds `run` takes; nullopt-like -1 when it reports a failure.
double Timed(const std::function<bool()>& run)
{
    const auto t0 = Clock::now();
    const bool ok = run();
    const double s = std::chrono::duration<double>(Clock::now() - t0).count();
    return ok ? s : -1.0;
}

bool ReadAllOurs(CDriveSerial& link)
{
    for (const RegisterFrame& f : ReadFrames()) {
        std::array<unsigned char, kRequestLength> tx{};
        std::array<unsigned char, 64> rx{};
        BuildReadFrame(tx, kStation, f.start, f.count);
        if (link.CommandSend(tx.data(), tx.size(), rx.data(), f.ReadReplyLength()) != ErrNone ||
            rx[1] != ModbusFn::ReadHolding)
            return false;
    }
    return true;
}

bool ReadAllLibmodbus(modbus_t* ctx)
{
    std::uint16_t regs[32];
    for (const RegisterFrame& f : ReadFrames()) {
        if (modbus_read_registers(ctx, f.start, f.count, regs) != f.count)
            return false;
    }
    return true;
}

bool ExceptionOurs(CDriveSerial& link)
{
    std::array<unsigned char, kRequestLength> tx{};
    std::array<unsigned char, 64> rx{};
    BuildReadFrame(tx, kStation, kHole, kHoleCount);
    return link.CommandSend(tx.data(), tx.size(), rx.data(), ReadReplyLength(kHoleCount)) ==
               ErrNone &&
           rx[1] == (ModbusFn::ReadHolding | 0x80);
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    int runs = 11;
    std::string simPath = R770_SIM;
    const QStringList args = app.arguments();
    for (int i = 1; i + 1 < args.size(); i += 2) {
        if (args[i] == QLatin1String("--runs"))
            runs = std::max(5, args[i + 1].toInt());
        else if (args[i] == QLatin1String("--sim"))
            simPath = args[i + 1].toStdString();
    }

    QTemporaryDir dir;
    const QString pty = dir.filePath(QStringLiteral("drive"));
    sim::ChildProcess sim({simPath, "--pty", pty.toStdString(), "--wire-timing", "--baud",
                           std::to_string(kBaud), "--stop-bits", "2", "--parity", "none"});
    if (sim.WaitForLine("ready", std::chrono::seconds(10)).empty()) {
        std::fprintf(stderr, "link_bench: r770-sim did not start\n");
        return 1;
    }
    qputenv(kPortsEnvVar, QStringLiteral("COM1=%1").arg(pty).toLocal8Bit());

    const sim::WireTiming line{kBaud, sim::kDefaultTurnaroundMs};
    double wire = 0.0;
    for (const RegisterFrame& f : ReadFrames())
        wire += line.ExchangeSeconds(kRequestLength, f.ReadReplyLength());
    const double exceptionWire = line.ExchangeSeconds(kRequestLength, kExceptionReplyLength);

    std::vector<double> ours, theirs, exceptions;
    for (int run = 0; run < runs; ++run) {
        {
            CDriveSerial link;
            if (!link.InitComm(QStringLiteral("COM1"), kBaud, 8, 0, 2.0f)) {
                std::fprintf(stderr, "link_bench: %s\n", qPrintable(link.OpenFailureDetail()));
                return 1;
            }
            ours.push_back(Timed([&] { return ReadAllOurs(link); }));
            exceptions.push_back(Timed([&] { return ExceptionOurs(link); }));
        }
        modbus_t* ctx = modbus_new_rtu(pty.toLocal8Bit().constData(), kBaud, 'N', 8, 2);
        if (!ctx || modbus_set_slave(ctx, kStation) != 0 || modbus_connect(ctx) != 0) {
            std::fprintf(stderr, "link_bench: libmodbus can't open %s\n", qPrintable(pty));
            return 1;
        }
        theirs.push_back(Timed([&] { return ReadAllLibmodbus(ctx); }));
        modbus_close(ctx);
        modbus_free(ctx);
    }
    for (const auto* v : {&ours, &theirs, &exceptions}) {
        if (std::find(v->begin(), v->end(), -1.0) != v->end()) {
            std::fprintf(stderr, "link_bench: a transaction failed\n");
            return 1;
        }
    }

    const double readAll = Median(ours);
    const double libmodbus = Median(theirs);
    std::vector<double> paired;
    for (std::size_t i = 0; i < ours.size(); ++i)
        paired.push_back(ours[i] / theirs[i]);
    const double exception = Median(exceptions);
    std::printf("frames %zu\nruns %d\n", ReadFrames().size(), runs);
    std::printf("read_all_s %.4f\n", readAll);
    std::printf("wire_min_s %.4f\n", wire);
    std::printf("ratio_to_wire %.3f\n", readAll / wire);
    std::printf("libmodbus_read_all_s %.4f\n", libmodbus);
    std::printf("ratio_to_libmodbus %.3f\n", Median(paired));
    std::printf("exception_reply_s %.4f\n", exception);
    std::printf("exception_wire_min_s %.4f\n", exceptionWire);
    return 0;
}
