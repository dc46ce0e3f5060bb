// CDriveSerial on a real pseudo-terminal, reached by pinning it to a COM name, with the
// simulated bus serving the other side: timing, faults and a line that vanishes.

#include "LinkTestSupport.h"

#include "link/ChannelFactory.h"
#include "link/ModbusFrame.h"
#include "link/Registers.h"
#include "link/SerialChannel.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cstdio>
#include <string>
#include <sys/stat.h>
#include <fcntl.h>
#include <unistd.h>

namespace quillon::test {
namespace {

using std::chrono::steady_clock;

ErrType Read(CSerial& link, int station, std::uint16_t reg, int count,
             std::array<unsigned char, 128>& rx)
{
    std::array<unsigned char, kRequestLength> tx{};
    BuildReadFrame(tx, station, reg, count);
    return link.CommandSend(tx.data(), tx.size(), rx.data(), ReadReplyLength(count));
}

TEST(PtyTransport, TransactionsEndAsSoonAsTheReplyIsComplete)
{
    PtyBus bus(TestBusSetup());
    CDriveSerial link;
    ASSERT_EQ(OpenOnDevice(link, bus.Path()), 1) << link.OpenFailureDetail().toStdString();
    EXPECT_EQ(link.LinkDescription(), bus.Path());
    std::array<unsigned char, 128> rx{};

    auto t0 = steady_clock::now();
    ASSERT_EQ(Read(link, 1, RegCapacityCode, 2, rx), ErrNone);
    EXPECT_EQ(FrameWord(rx.data(), 3), 1205);
    EXPECT_LT(SecondsSince(t0), 0.1);

    std::array<unsigned char, kRequestLength> tx{};
    BuildWriteSingleFrame(tx, 1, RegFrequencyCommand, 3000);
    ASSERT_EQ(link.CommandSend(tx.data(), tx.size(), rx.data(), kWriteReplyLength), ErrNone);
    EXPECT_EQ(rx[1], 0x06);
    ASSERT_EQ(Read(link, 1, RegMonitorBlock, 16, rx), ErrNone);
    EXPECT_EQ(FrameWord(rx.data(), 3), 3000);  // set frequency

    // The exception reply to a 23-register read: five bytes, no waiting for 51.
    t0 = steady_clock::now();
    ASSERT_EQ(Read(link, 1, 0x0E30, 23, rx), ErrNone);
    EXPECT_LT(SecondsSince(t0), 0.1);
    EXPECT_EQ(rx[1], 0x83);
    EXPECT_EQ(rx[2], 'R');
}

TEST(PtyTransport, BadCrcAndSilenceGiveOneAndTwo)
{
    sim::BusSetup setup = TestBusSetup();
    setup.faults.badCrcEvery = 2;  // the second reply
    setup.faults.dropEvery = 3;    // the third reply
    PtyBus bus(setup);
    CDriveSerial link;
    ASSERT_EQ(OpenOnDevice(link, bus.Path()), 1);
    std::array<unsigned char, 128> rx{};
    EXPECT_EQ(Read(link, 1, 0x0000, 21, rx), ErrNone);
    auto t0 = steady_clock::now();
    EXPECT_EQ(Read(link, 1, 0x0000, 21, rx), ErrCrc);
    EXPECT_LT(SecondsSince(t0), 0.1);
    t0 = steady_clock::now();
    EXPECT_EQ(Read(link, 1, 0x0000, 21, rx), ErrTimeout);
    const double waited = SecondsSince(t0);
    EXPECT_GE(waited, kResponseTimeoutMs / 1000.0);
    EXPECT_LT(waited, kResponseTimeoutMs / 1000.0 + 0.25);
    EXPECT_EQ(Read(link, 1, 0x0000, 21, rx), ErrCrc);  // the fourth reply
    EXPECT_EQ(Read(link, 1, 0x0000, 21, rx), ErrNone);
}

TEST(PtyTransport, VanishedLineGivesCommunicationErrorAtOnce)
{
  // Through the descriptor on the calling thread, and through QSerialPort on the I/O thread:
  // a pseudo-terminal whose other side closed floods read errors there while the port still
  // counts as open.
  for (SerialIo io : {SerialIo::Direct, SerialIo::QtBlocking}) {
    SCOPED_TRACE(io == SerialIo::Direct ? "direct" : "QSerialPort");
    PtyBus bus(TestBusSetup());
    ScopedChannelFactory factory([io](const OpenRequest& r, QString& reason) {
        return std::unique_ptr<Channel>(SerialChannel::Open(r.m_strDevice, r.m_line, reason, io));
    });
    CDriveSerial link;
    ASSERT_EQ(OpenOnDevice(link, bus.Path()), 1);
    std::array<unsigned char, 128> rx{};
    ASSERT_EQ(Read(link, 1, RegStatusWord, 1, rx), ErrNone);
    ASSERT_EQ(Read(link, 1, 0x0207, 1, rx), ErrNone);  // an exception reply ends at once too
    EXPECT_EQ(rx[2], 'R');

    bus.Vanish();
    for (int i = 0; i < 3; ++i) {
        const auto t0 = steady_clock::now();
        EXPECT_EQ(Read(link, 1, RegStatusWord, 1, rx), ErrComm);
        EXPECT_LT(SecondsSince(t0), 0.1) << "attempt " << i;
    }
    EXPECT_FALSE(link.IsOpen());
    EXPECT_EQ(link.Close(), 0);
  }
}

TEST(PtyTransport, OpenFailuresSayWhy)
{
    PtyBus bus(TestBusSetup());
    CDriveSerial first, second;
    ASSERT_EQ(OpenOnDevice(first, bus.Path()), 1);
    // The same name, and the pseudo-terminal itself behind the pinned link: one line, busy.
    for (const QString& name : {bus.Path(), QFileInfo(bus.Path()).canonicalFilePath()}) {
        EXPECT_EQ(OpenOnDevice(second, name), 0) << name.toStdString();
        EXPECT_TRUE(second.OpenFailureDetail().contains(QStringLiteral("busy")))
            << second.OpenFailureDetail().toStdString();
    }
    first.Close();
    EXPECT_EQ(OpenOnDevice(second, bus.Path()), 1) << second.OpenFailureDetail().toStdString();

    second.Close();
    CDriveSerial missing;
    EXPECT_EQ(OpenOnDevice(missing, bus.Path() + QStringLiteral("-gone")), 0);
    EXPECT_TRUE(missing.OpenFailureDetail().contains(QStringLiteral("does not exist")));

    // A user outside the device's group gets the way in, not a bare "permission denied": a child
    // process drops to an unprivileged user (or, not running as root, takes its own rights away).
    const std::string style = GTEST_FLAG_GET(death_test_style);
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // the simulated bus runs a thread of its own
    const QByteArray device = QFile::encodeName(QFileInfo(bus.Path()).canonicalFilePath());
    const auto openUnpermitted = [&] {
        const bool dropped = ::geteuid() == 0 ? ::setgid(65534) == 0 && ::setuid(65534) == 0
                                              : ::chmod(device.constData(), 0) == 0;
        if (!dropped) ::_exit(3);
        // The device itself, and the pinned name in a folder of the test's own.
        int refused = 0;
        for (const QString& path : {QFile::decodeName(device), bus.Path()}) {
            QString reason;
            const bool opened = SerialChannel::Open(path, LineSettings{}, reason) != nullptr;
            std::fprintf(stderr, "%s\n", reason.toUtf8().constData());
            refused += !opened && reason.contains(QStringLiteral("dialout group"));
        }
        ::_exit(refused == 2 ? 0 : 1);
    };
    EXPECT_EXIT(openUnpermitted(), testing::ExitedWithCode(0), "No permission to open");
    GTEST_FLAG_SET(death_test_style, style);
}

TEST(SerialChannelLatency, PseudoTerminalsRefuseLowLatencyAndStillOpen)
{
    PtyBus bus(TestBusSetup());
    QString reason;
    auto channel = SerialChannel::Open(bus.Path(), LineSettings{}, reason);
    ASSERT_TRUE(channel) << reason.toStdString();
    EXPECT_FALSE(channel->LowLatency());  // ENOTTY from the pty driver, tolerated
    const int fd = ::open("/dev/null", O_RDWR);
    EXPECT_FALSE(RequestLowLatency(fd));
    ::close(fd);
}

}  // namespace
}  // namespace quillon::test
