// CDriveSerial in front of a simulated bus in this process: transaction results, reply
// completion, faults, the read guard, pacing and use from two threads.

#include "SimLinkFixture.h"

#include "link/Broadcast.h"
#include "link/LinkResult.h"
#include "link/PortMap.h"
#include "link/Registers.h"
#include "link/ReplyJudge.h"

#include <chrono>
#include <thread>

namespace quillon::test {
namespace {

using std::chrono::steady_clock;

// Both places a transaction can run: the calling thread and the link's I/O thread.
constexpr bool kIoPaths[] = {true, false};

TEST_F(SimLinkTest, ReadsAndWritesRegisters)
{
    OpenBus();
    ASSERT_EQ(ReadRegs(1, RegCapacityCode, 2), ErrNone);
    EXPECT_EQ(m_rx[1], 0x03);
    EXPECT_EQ(m_rx[2], 4);
    EXPECT_EQ(Word(0), 1205);  // the model code
    EXPECT_EQ(Word(1), 1000);  // version 1.000 from the catalogue

    ASSERT_EQ(WriteReg(1, 0x0014, 7), ErrNone);  // 00-20
    EXPECT_EQ(m_rx[1], 0x06);
    EXPECT_EQ(FrameWord(m_rx.data(), 4), 7);
    ASSERT_EQ(WriteRegs(1, 0x0A00, {11, 22, 33}), ErrNone);
    EXPECT_EQ(m_rx[1], 0x10);
    EXPECT_EQ(FrameWord(m_rx.data(), 2), 0x0A00);
    EXPECT_EQ(FrameWord(m_rx.data(), 4), 3);

    ASSERT_EQ(ReadRegs(1, 0x0A00, 3), ErrNone);
    EXPECT_EQ(Word(0), 11);
    EXPECT_EQ(Word(1), 22);
    EXPECT_EQ(Word(2), 33);
    ASSERT_EQ(ReadRegs(1, 0x0014, 1), ErrNone);
    EXPECT_EQ(Word(0), 7);
}

TEST_F(SimLinkTest, ExceptionReplyEndsAtFiveBytesWithoutTheTimeout)
{
  for (bool anyThreadIo : kIoPaths) {
    SCOPED_TRACE(anyThreadIo ? "calling thread" : "I/O thread");
    OpenBus(TestBusSetup(), &sim::SimClock::now, anyThreadIo);
    const auto t0 = steady_clock::now();
    // 02-07 lies in a hole of the register map: the drive answers 'R'. The caller expects the
    // 47 bytes of a 21-register read.
    ASSERT_EQ(ReadRegs(1, 0x0207, 21), ErrNone);
    EXPECT_LT(SecondsSince(t0), 0.2);
    EXPECT_EQ(m_rx[1], 0x83);
    EXPECT_EQ(m_rx[2], 'R');
    // The rest of the expected length stays zero: the receive buffer is cleared first.
    for (int i = 5; i < ReadReplyLength(21); ++i)
        EXPECT_EQ(m_rx[i], 0) << i;
    const ReplyVerdict v = JudgeReply(ReplyCaller::GroupRead, ErrNone, m_rx.data(), 0x03);
    EXPECT_EQ(v.text, "Address Error ");
  }
}

struct FaultCase {
    const char* name;
    sim::FaultOptions faults;
    ErrType expected;
    double minSeconds, maxSeconds;  // time the transaction takes
};

TEST_F(SimLinkTest, InjectedFaultsGiveTheirResults)
{
    const double timeout = kResponseTimeoutMs / 1000.0;
    const FaultCase cases[] = {
        {"bad CRC", {.badCrcEvery = 1}, ErrCrc, 0.0, 0.2},
        {"dropped reply", {.dropEvery = 1}, ErrTimeout, timeout, timeout + 0.25},
        {"truncated reply", {.truncateEvery = 1}, ErrTimeout, timeout, timeout + 0.25},
        {"late reply", {.extraDelayMs = 150}, ErrNone, 0.15, 0.4},
    };
    for (const FaultCase& c : cases) {
        SCOPED_TRACE(c.name);
        sim::BusSetup setup = TestBusSetup();
        setup.faults = c.faults;
        OpenBus(setup);
        const auto t0 = steady_clock::now();
        EXPECT_EQ(ReadRegs(1, 0x0000, 21), c.expected);
        const double s = SecondsSince(t0);
        EXPECT_GE(s, c.minSeconds);
        EXPECT_LT(s, c.maxSeconds);
    }
}

TEST_F(SimLinkTest, StationThatFallsSilentTimesOutAndOthersStillAnswer)
{
    sim::BusSetup setup = TestBusSetup();
    setup.stations = {{1, 1205}, {2, 401}};
    setup.faults.silentAfter = 1;
    OpenBus(setup);
    EXPECT_EQ(ReadRegs(1, RegCapacityCode, 1), ErrNone);
    EXPECT_EQ(ReadRegs(2, RegCapacityCode, 1), ErrNone);
    EXPECT_EQ(Word(0), 401);
    EXPECT_EQ(ReadRegs(1, RegCapacityCode, 1), ErrTimeout);
    // A station that isn't on the bus never answers either.
    sim::BusSetup single = TestBusSetup();
    OpenBus(single);
    EXPECT_EQ(ReadRegs(9, RegCapacityCode, 1), ErrTimeout);
}

TEST_F(SimLinkTest, LostLineEndsAtOnceAndStaysClosed)
{
  for (bool anyThreadIo : kIoPaths) {
    SCOPED_TRACE(anyThreadIo ? "calling thread" : "I/O thread");
    OpenBus(TestBusSetup(), &sim::SimClock::now, anyThreadIo);
    ASSERT_TRUE(m_link.IsOpen());
    m_line->Cut();
    const auto t0 = steady_clock::now();
    EXPECT_EQ(ReadRegs(1, 0x0000, 1), ErrComm);
    EXPECT_LT(SecondsSince(t0), 0.1);
    EXPECT_FALSE(m_link.IsOpen());
    EXPECT_EQ(ReadRegs(1, 0x0000, 1), ErrComm);
    unsigned long written = 99;
    const unsigned char byte = 0;
    EXPECT_EQ(m_link.Write(&byte, 1, &written), 0);
    EXPECT_EQ(written, 0u);
    // Closed links answer every call at once; reopening works.
    EXPECT_EQ(m_link.Close(), 0);
    OpenBus(TestBusSetup(), &sim::SimClock::now, anyThreadIo);
    EXPECT_EQ(ReadRegs(1, 0x0000, 1), ErrNone);
  }
}

TEST_F(SimLinkTest, StaleInputIsDrainedBeforeTheRequest)
{
    OpenBus();
    // A late reply of an earlier exchange and some noise lie on the line.
    m_line->InjectInput({0x01, 0x03, 0x02, 0x12, 0x34, 0xAA, 0x55, 0x00});
    ASSERT_EQ(ReadRegs(1, RegCapacityCode, 1), ErrNone);
    EXPECT_EQ(Word(0), 1205);
}

TEST_F(SimLinkTest, ReadGuardRefusesRequestsOf161BytesAndPurges)
{
  for (bool anyThreadIo : kIoPaths) {
    SCOPED_TRACE(anyThreadIo ? "calling thread" : "I/O thread");
    OpenBus(TestBusSetup(), &sim::SimClock::now, anyThreadIo);
    std::vector<unsigned char> buffer(200, 0xEE);
    unsigned long count = 99;
    m_line->InjectInput(std::vector<unsigned char>(10, 0x42));
    EXPECT_EQ(m_link.Read(buffer.data(), 161, &count, 50), 0);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(buffer[0], 0xEE);
    // The purge took the waiting bytes: nothing is left for a read of 160.
    EXPECT_EQ(m_link.Read(buffer.data(), 160, &count, 30), 1);
    EXPECT_EQ(count, 0u);
    m_line->InjectInput(std::vector<unsigned char>(10, 0x42));
    EXPECT_EQ(m_link.Read(buffer.data(), 160, &count, 30), 1);
    EXPECT_EQ(count, 10u);
    EXPECT_EQ(buffer[9], 0x42);

    // A transaction that expects 161 bytes is refused by the same guard, at once.
    const auto t0 = steady_clock::now();
    EXPECT_EQ(ReadRegs(1, 0x0000, 1, 161), ErrComm);
    EXPECT_LT(SecondsSince(t0), 0.1);
    EXPECT_TRUE(m_link.IsOpen());
    EXPECT_EQ(ReadRegs(1, 0x0000, 1), ErrNone);
  }
}

TEST_F(SimLinkTest, SendFramePausesBeforeEveryFrame)
{
    OpenBus();
    std::array<unsigned char, kRequestLength> tx{};
    BuildReadFrame(tx, 1, RegStatusWord, 1);
    std::array<unsigned char, 7> rx{};
    for (int i = 0; i < 2; ++i) {
        const auto t0 = steady_clock::now();
        ASSERT_EQ(m_link.SendFrame(tx.data(), tx.size(), rx.data(), rx.size()), ErrNone);
        const auto sent = m_line->SentTimes().back();
        EXPECT_GE(std::chrono::duration<double>(sent - t0).count(), kSendFramePauseMs / 1000.0)
            << "frame " << i;
    }
    // CommandSend itself adds no pause.
    const auto t0 = steady_clock::now();
    ASSERT_EQ(m_link.CommandSend(tx.data(), tx.size(), rx.data(), rx.size()), ErrNone);
    EXPECT_LT(std::chrono::duration<double>(m_line->SentTimes().back() - t0).count(), 0.005);
}

TEST_F(SimLinkTest, BroadcastReachesEveryStationAndAwaitsNoReply)
{
    sim::BusSetup setup = TestBusSetup();
    setup.stations = {{1, 1205}, {2, 1205}};
    OpenBus(setup);
    const auto t0 = steady_clock::now();
    EXPECT_EQ(BroadcastWriteSingle(m_link, 0x0014, 9), 1);
    const double s = SecondsSince(t0);
    EXPECT_GE(s, kBroadcastPauseMs / 1000.0);
    EXPECT_LT(s, kBroadcastPauseMs / 1000.0 + 0.1);  // no reply awaited
    const auto sent = m_line->Sent();
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0][0], kBroadcastStation);
    for (int station : {1, 2}) {
        ASSERT_EQ(ReadRegs(station, 0x0014, 1), ErrNone);
        EXPECT_EQ(Word(0), 9) << station;
    }
    // Counted as done even when the line is gone.
    m_line->Cut();
    EXPECT_EQ(BroadcastWriteSingle(m_link, 0x0014, 1), 1);
}

TEST_F(SimLinkTest, TransactionsFromTwoThreadsNeverMix)
{
  for (bool anyThreadIo : kIoPaths) {
    SCOPED_TRACE(anyThreadIo ? "calling thread" : "I/O thread");
    sim::BusSetup setup = TestBusSetup();
    setup.stations = {{1, 1205}, {2, 401}};
    OpenBus(setup, &sim::SimClock::now, anyThreadIo);
    // Each thread reads its own station's model code and must always get its own answer.
    const auto worker = [this](int station, int expected, int& failures) {
        for (int i = 0; i < 40; ++i) {
            std::array<unsigned char, kRequestLength> tx{};
            BuildReadFrame(tx, station, RegCapacityCode, 1);
            std::array<unsigned char, 7> rx{};
            if (m_link.CommandSend(tx.data(), tx.size(), rx.data(), rx.size()) != ErrNone ||
                rx[0] != station || FrameWord(rx.data(), 3) != expected)
                ++failures;
        }
    };
    int failures1 = 0, failures2 = 0;
    std::thread other(worker, 2, 401, std::ref(failures2));
    worker(1, 1205, failures1);
    other.join();
    EXPECT_EQ(failures1, 0);
    EXPECT_EQ(failures2, 0);
  }
}

TEST(DriveSerialOpen, RefusesBadSettingsAndUnknownPortsWithAReason)
{
    CDriveSerial link;
    struct Bad {
        const char* port;
        unsigned long baud;
        unsigned char dataBits, parity;
        float stop;
    };
    const Bad bad[] = {
        {"COM1", 1200, 8, 0, 1.0f}, {"COM1", 57600, 8, 0, 1.0f}, {"COM1", 9600, 6, 0, 1.0f},
        {"COM1", 9600, 8, 3, 1.0f}, {"COM1", 9600, 8, 0, 1.5f},  {"LPT1", 9600, 8, 0, 1.0f},
    };
    for (const Bad& b : bad) {
        EXPECT_EQ(link.InitComm(QString::fromLatin1(b.port), b.baud, b.dataBits, b.parity, b.stop),
                  0)
            << b.port << " " << b.baud;
        EXPECT_FALSE(link.OpenFailureDetail().isEmpty());
        EXPECT_FALSE(link.IsOpen());
    }
    qputenv(kPortsEnvVar, "COM250=/nonexistent/quillon-port");
    EXPECT_EQ(link.InitComm(QStringLiteral("\\\\.\\COM250"), 9600, 8, 0, 1.0f), 0);
    EXPECT_TRUE(link.OpenFailureDetail().contains(QStringLiteral("does not exist")))
        << link.OpenFailureDetail().toStdString();
    qunsetenv(kPortsEnvVar);
}

TEST(DriveSerialOpen, TcpPathHandsThePeerAndMacToTheChannel)
{
    OpenRequest seen;
    ScopedChannelFactory factory([&seen](const OpenRequest& r, QString& reason) {
        seen = r;
        reason = QStringLiteral("nobody there");
        return std::unique_ptr<Channel>();
    });
    CDriveSerial link;
    link.peerAddress.m_nAddress = 0x7F000001;
    link.peerAddress.m_nPort = 4321;
    link.GetStrMac(QStringLiteral("00-20-4A-01-02-03"));
    EXPECT_EQ(link.InitComm(QStringLiteral("TCPIP"), 19200, 8, 2, 1.0f), 0);
    EXPECT_TRUE(seen.m_bTcp);
    EXPECT_EQ(seen.m_peer.m_nPort, 4321);
    EXPECT_EQ(seen.m_peer.AddressText(), "127.0.0.1");
    EXPECT_EQ(seen.m_strMac, "00-20-4A-01-02-03");
    EXPECT_EQ(seen.m_line.m_parity, Parity::Even);
    EXPECT_EQ(link.OpenFailureDetail(), "nobody there");
}

}  // namespace
}  // namespace quillon::test
