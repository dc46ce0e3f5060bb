// The device search, the address assignment and a link through a network module, against
// simulated modules on the loopback interface of a network namespace of the test's own: the
// search goes to 127.255.255.255 and nothing leaves the namespace.

#include "LinkTestSupport.h"
#include "link/DeviceSearch.h"
#include "link/RegisterReaders.h"
#include "link/SearchProtocol.h"
#include "SimModule.h"
#include "support/NetNamespace.h"
#include "support/ProgramRun.h"

#include <algorithm>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace quillon::test {
namespace {

using std::chrono::steady_clock;

const QString& kBroadcast = kLoopbackBroadcast;
const MacBytes kMacA{0x00, 0x20, 0x4a, 0x00, 0x00, 0x0a};
const MacBytes kMacB{0x00, 0x20, 0x4a, 0x00, 0x00, 0x0b};
const MacBytes kMacC{0x00, 0x20, 0x4a, 0x00, 0x00, 0x0c};

using Module = SimModule;

sockaddr_in Ipv4(const char* address, int port)
{
    sockaddr_in sa{};
    sa.sin_family = AF_INET;
    sa.sin_port = htons(static_cast<std::uint16_t>(port));
    ::inet_pton(AF_INET, address, &sa.sin_addr);
    return sa;
}

// Another device on the segment that hears the search and answers it with what is no reply
// (a query of its own, short and malformed datagrams) and with one reply sent twice.
class NoisyPeer {
public:
    NoisyPeer()
    {
        m_hear = Socket("127.255.255.255", kSearchPort);
        m_speak = Socket("127.0.0.4", 0);
        m_thread = std::thread([this] { Run(); });
    }
    ~NoisyPeer()
    {
        m_stop = true;
        m_thread.join();
        ::close(m_hear);
        ::close(m_speak);
    }

private:
    static int Socket(const char* address, int port)
    {
        const int fd = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        const int one = 1;
        ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
        const sockaddr_in sa = Ipv4(address, port);
        EXPECT_EQ(::bind(fd, reinterpret_cast<const sockaddr*>(&sa), sizeof sa), 0);
        return fd;
    }
    void Run()
    {
        while (!m_stop) {
            pollfd p{m_hear, POLLIN, 0};
            if (::poll(&p, 1, 50) <= 0)
                continue;
            char buffer[64];
            sockaddr_in sender{};
            socklen_t length = sizeof sender;
            if (::recvfrom(m_hear, buffer, sizeof buffer, 0, reinterpret_cast<sockaddr*>(&sender), &length) <= 0)
                continue;
            const auto send = [&](const QByteArray& d) {
                ::sendto(m_speak, d.constData(), static_cast<std::size_t>(d.size()), 0,
                         reinterpret_cast<const sockaddr*>(&sender), length);
            };
            send(SearchQuery());
            send(QByteArray("\xF7\xF7\xF7", 3));
            send(QByteArray("\x00\x00\xF7\x00garbage", 11));
            send(QByteArray(1500, '\xAB'));
            send(SearchReply(kMacC));
            send(SearchReply(kMacC));
        }
    }

    int m_hear = -1;
    int m_speak = -1;
    std::atomic<bool> m_stop{false};
    std::thread m_thread;
};

std::vector<std::pair<QString, QString>> MacsAndAddresses(const std::vector<DeviceRecord>& list)
{
    std::vector<std::pair<QString, QString>> out;
    for (const DeviceRecord& d : list)
        out.emplace_back(d.mac, d.ip);
    std::sort(out.begin(), out.end());
    return out;
}

TEST(DeviceSearch, FindsEveryModuleKeepsDuplicatesAndSkipsWhatIsNoReply)
{
    QUILLON_IN_OWN_NETWORK_NAMESPACE();
    ScopedSearchAddress address(kBroadcast);
    Module a(QStringLiteral("127.0.0.2"), kMacA);
    Module b(QStringLiteral("127.0.0.3"), kMacB);
    ASSERT_TRUE(a.module.Searchable());
    NoisyPeer peer;

    std::vector<DeviceRecord> list{DeviceRecord{}};
    const auto t0 = steady_clock::now();
    SearchModules(list);
    const double seconds = SecondsSince(t0);
    EXPECT_GE(seconds, 1.9);  // ends only when the time-out has passed without a datagram
    EXPECT_LT(seconds, 4.0);
    EXPECT_EQ(MacsAndAddresses(list), (std::vector<std::pair<QString, QString>>{
                                          {"00-20-4a-00-00-0a", "127.0.0.2"},
                                          {"00-20-4a-00-00-0b", "127.0.0.3"},
                                          {"00-20-4a-00-00-0c", "127.0.0.4"},
                                          {"00-20-4a-00-00-0c", "127.0.0.4"}}));
    for (const DeviceRecord& d : list) {
        EXPECT_EQ(d.socketAddress.m_nFamily, 2);
        EXPECT_EQ(d.socketAddress.AddressText(), d.ip);
        EXPECT_NE(d.socketAddress.m_nPort, 0);
        EXPECT_TRUE(d.name.isEmpty());
    }
    // The query went out once; every module heard it once.
    EXPECT_EQ(a.module.QueriesHeard(), 1);
    EXPECT_EQ(b.module.QueriesHeard(), 1);
}

TEST(DeviceSearch, NoReplyLeavesAnEmptyListAfterTheTimeOut)
{
    QUILLON_IN_OWN_NETWORK_NAMESPACE();
    ScopedSearchAddress address(kBroadcast);
    std::vector<DeviceRecord> list{DeviceRecord{}};
    const auto t0 = steady_clock::now();
    SearchModules(list);
    EXPECT_TRUE(list.empty());
    EXPECT_GE(SecondsSince(t0), 1.9);
    EXPECT_LT(SecondsSince(t0), 3.0);

    // A search address that is none: nothing can be sent, the list stays empty at once.
    SetSearchAddress(QStringLiteral("no.such.address"));
    const auto t1 = steady_clock::now();
    SearchModules(list);
    EXPECT_TRUE(list.empty());
    EXPECT_LT(SecondsSince(t1), 0.5);
}

TEST(DeviceSearch, AddressAssignedByMacEvenOutsideTheLocalNetwork)
{
    QUILLON_IN_OWN_NETWORK_NAMESPACE();
    ScopedSearchAddress address(kBroadcast);
    // A module on a network of its own: 10.20.30.40 is no address of the searcher's network.
    ASSERT_EQ(RunProgram(QStringLiteral("ip"), {"addr", "add", "10.20.30.40/32", "dev", "lo"}).code, 0);
    Module a(QStringLiteral("10.20.30.40"), kMacA);
    Module b(QStringLiteral("127.0.0.3"), kMacB);

    const auto t0 = steady_clock::now();
    EXPECT_EQ(AssignModuleAddress(QStringLiteral("00-20-4A-00-00-0A"), QStringLiteral("127.0.0.9")), 1);
    EXPECT_LT(SecondsSince(t0), 1.0);
    EXPECT_EQ(a.module.Address(), QStringLiteral("127.0.0.9"));
    EXPECT_EQ(b.module.Address(), QStringLiteral("127.0.0.3"));  // not its MAC

    // Its drive now answers at the new address, and the search finds it there.
    CDriveSerial link;
    link.peerAddress.m_nAddress = *ParseIpv4(QStringLiteral("127.0.0.9"));
    ASSERT_EQ(link.InitComm(QStringLiteral("TCPIP"), 19200, 8, 0, 1.0f), 1)
        << link.OpenFailureDetail().toStdString();
    int capacity = 0;
    EXPECT_EQ(ReadCapacity(link, 1, capacity), 1);
    EXPECT_EQ(capacity, 1205);
    link.Close();
    std::vector<DeviceRecord> list;
    SearchModules(list);
    EXPECT_EQ(MacsAndAddresses(list), (std::vector<std::pair<QString, QString>>{
                                          {"00-20-4a-00-00-0a", "127.0.0.9"},
                                          {"00-20-4a-00-00-0b", "127.0.0.3"}}));

    // No module with that MAC: no answer within the time-out.
    const auto t1 = steady_clock::now();
    EXPECT_EQ(AssignModuleAddress(QStringLiteral("00-20-4a-00-00-99"), QStringLiteral("127.0.0.8")), 0);
    EXPECT_GE(SecondsSince(t1), 1.9);
    // An address the module can't take is refused at once; malformed texts send nothing.
    const auto t2 = steady_clock::now();
    EXPECT_EQ(AssignModuleAddress(MacText(kMacB), QStringLiteral("192.0.2.1")), 0);
    EXPECT_EQ(AssignModuleAddress(QStringLiteral("00-20-4a"), QStringLiteral("127.0.0.8")), 0);
    EXPECT_EQ(AssignModuleAddress(MacText(kMacB), QStringLiteral("127.0.0.256")), 0);
    EXPECT_LT(SecondsSince(t2), 1.0);
    EXPECT_EQ(b.module.Address(), QStringLiteral("127.0.0.3"));
}

}  // namespace
}  // namespace quillon::test
