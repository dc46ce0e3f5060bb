// The "TCPIP" path: a network module on loopback, played by the simulated bus, and a module
// that goes away.

#include "LinkTestSupport.h"

#include "link/ModbusFrame.h"
#include "link/Registers.h"

#include <gtest/gtest.h>

#include <array>
#include <sys/socket.h>
#include <unistd.h>

namespace quillon::test {
namespace {

using std::chrono::steady_clock;

void PointAtLoopback(CSerial& link, int port)
{
    link.peerAddress.m_nAddress = 0x7F000001;
    link.peerAddress.m_nPort = static_cast<std::uint16_t>(port);
}

// A read of `count` registers of the status block; the builder stops at 23, this doesn't.
ErrType ReadStatus(CSerial& link, std::array<unsigned char, 128>& rx, int count = 8)
{
    std::array<unsigned char, kRequestLength> tx{1, 0x03, 0x25, 0x20, 0, static_cast<unsigned char>(count)};
    AppendCrc(tx.data(), 6);
    return link.CommandSend(tx.data(), tx.size(), rx.data(), ReadReplyLength(count));
}

TEST(TcpTransport, ModuleOnLoopbackServesTransactions)
{
    sim::SimBus bus(TestBusSetup());
    sim::TcpListener listener(QStringLiteral("127.0.0.1"), 0);
    sim::StreamServer server(bus);
    std::thread thread([&] { server.ServeListener(listener.Fd()); });

    CDriveSerial link;
    PointAtLoopback(link, listener.Port());
    ASSERT_EQ(link.InitComm(QStringLiteral("TCPIP"), 19200, 8, 0, 1.0f), 1)
        << link.OpenFailureDetail().toStdString();
    EXPECT_EQ(link.LinkDescription(), QStringLiteral("127.0.0.1:%1").arg(listener.Port()));
    std::array<unsigned char, 128> rx{};
    EXPECT_EQ(ReadStatus(link, rx), ErrNone);
    EXPECT_EQ(rx[2], 16);
    const auto t0 = steady_clock::now();
    EXPECT_EQ(ReadStatus(link, rx, 40), ErrNone);  // above the drive's limit: 'S'
    EXPECT_LT(SecondsSince(t0), 0.1);
    EXPECT_EQ(rx[1], 0x83);
    EXPECT_EQ(rx[2], 'S');
    link.Close();
    server.Stop();
    thread.join();
}

TEST(TcpTransport, ModuleThatClosesGivesCommunicationErrorAtOnce)
{
    sim::TcpListener listener(QStringLiteral("127.0.0.1"), 0);
    // A module that takes one request and hangs up.
    std::thread module([fd = listener.Fd()] {
        const int client = ::accept(fd, nullptr, nullptr);
        char buf[64];
        [[maybe_unused]] const ssize_t n = ::read(client, buf, sizeof buf);
        ::close(client);
    });
    CDriveSerial link;
    PointAtLoopback(link, listener.Port());
    ASSERT_EQ(link.InitComm(QStringLiteral("TCPIP"), 19200, 8, 0, 1.0f), 1);
    std::array<unsigned char, 128> rx{};
    const auto t0 = steady_clock::now();
    EXPECT_EQ(ReadStatus(link, rx), ErrComm);
    EXPECT_LT(SecondsSince(t0), 0.2);
    module.join();
    EXPECT_FALSE(link.IsOpen());
    EXPECT_EQ(ReadStatus(link, rx), ErrComm);
}

TEST(TcpTransport, UnreachableModuleFailsToOpen)
{
    int port = 0;
    {
        sim::TcpListener probe(QStringLiteral("127.0.0.1"), 0);
        port = probe.Port();
    }  // closed again: nothing listens there now
    CDriveSerial link;
    PointAtLoopback(link, port);
    EXPECT_EQ(link.InitComm(QStringLiteral("TCPIP"), 19200, 8, 0, 1.0f), 0);
    EXPECT_TRUE(link.OpenFailureDetail().contains(QStringLiteral("127.0.0.1")));
}

}  // namespace
}  // namespace quillon::test
