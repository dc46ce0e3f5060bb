#include "sim/NetworkModule.h"

#include "sim/Endpoints.h"
#include "sim/StreamServer.h"

#include <arpa/inet.h>
#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace quillon::sim {
namespace {

sockaddr_in SocketAddress(std::uint32_t address, int port)
{
    sockaddr_in sa{};
    sa.sin_family = AF_INET;
    sa.sin_port = htons(static_cast<std::uint16_t>(port));
    sa.sin_addr.s_addr = htonl(address);
    return sa;
}

std::uint32_t AddressOf(const QString& text)
{
    const auto a = ParseIpv4(text);
    if (!a)
        throw std::runtime_error("not an IPv4 address: " + text.toStdString());
    return *a;
}

// A UDP socket bound to `address`:`port`, shared with other sockets on the same port; -1 when
// it can't be bound.
int BoundUdpSocket(std::uint32_t address, int port)
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return -1;
    const int one = 1;
    ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
    ::setsockopt(fd, SOL_SOCKET, SO_BROADCAST, &one, sizeof one);
    const sockaddr_in sa = SocketAddress(address, port);
    if (::bind(fd, reinterpret_cast<const sockaddr*>(&sa), sizeof sa) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
}

void CloseFd(int& fd)
{
    if (fd >= 0)
        ::close(std::exchange(fd, -1));
}

}  // namespace

MacBytes ModuleMacForPort(int tcpPort)
{
    return MacBytes{0x02, 0x00, 0x00, 0x00, static_cast<std::uint8_t>((tcpPort >> 8) & 0xFF),
                    static_cast<std::uint8_t>(tcpPort & 0xFF)};
}

NetworkModule::NetworkModule(SimBus& bus, const ModuleSetup& setup) : m_bus(bus), m_setup(setup)
{
    const std::uint32_t address = AddressOf(setup.address);
    auto listener = std::make_unique<TcpListener>(setup.address, setup.tcpPort);
    m_nPort = listener->Port();
    if (m_setup.mac == MacBytes{})
        m_setup.mac = ModuleMacForPort(m_nPort);
    StartData(std::move(listener));
    if (!setup.answerSearch)
        return;
    if (::pipe2(m_wake, O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::runtime_error("can't create the wake-up pipe");
    m_searchFd = BoundUdpSocket(AddressOf(setup.searchListen), setup.searchPort);
    m_answerFd = BoundUdpSocket(address, 0);
    if (m_searchFd < 0 || m_answerFd < 0) {
        CloseFd(m_searchFd);
        CloseFd(m_answerFd);
        return;
    }
    m_searchThread = std::thread([this] { SearchLoop(); });
}

NetworkModule::~NetworkModule()
{
    if (m_searchThread.joinable()) {
        const char c = 0;
        [[maybe_unused]] const ssize_t n = ::write(m_wake[1], &c, 1);
        m_searchThread.join();
    }
    StopData();
    CloseFd(m_searchFd);
    CloseFd(m_answerFd);
    CloseFd(m_wake[0]);
    CloseFd(m_wake[1]);
}

QString NetworkModule::Address() const
{
    std::lock_guard lock(m_mutex);
    return m_setup.address;
}

void NetworkModule::OnAddressChange(std::function<void(const QString&)> callback)
{
    std::lock_guard lock(m_mutex);
    m_onAddressChange = std::move(callback);
}

void NetworkModule::StartData(std::unique_ptr<TcpListener> listener)
{
    m_listener = std::move(listener);
    m_server = std::make_unique<StreamServer>(m_bus);
    m_dataThread = std::thread([server = m_server.get(), fd = m_listener->Fd()] {
        server->ServeListener(fd);
    });
}

void NetworkModule::StopData()
{
    if (m_dataThread.joinable()) {
        m_server->Stop();
        m_dataThread.join();
    }
    m_server.reset();
    m_listener.reset();
}

void NetworkModule::SearchLoop()
{
    char buffer[kSearchDatagramSize];
    for (;;) {
        pollfd p[2] = {{m_searchFd, POLLIN, 0}, {m_wake[0], POLLIN, 0}};
        if (::poll(p, 2, -1) < 0 && errno != EINTR)
            return;
        if (p[1].revents)
            return;
        if (!(p[0].revents & POLLIN))
            continue;
        sockaddr_in sender{};
        socklen_t length = sizeof sender;
        const ssize_t n = ::recvfrom(m_searchFd, buffer, sizeof buffer, 0,
                                     reinterpret_cast<sockaddr*>(&sender), &length);
        if (n > 0)
            Answer(QByteArray(buffer, static_cast<qsizetype>(n)), &sender, length);
    }
}

void NetworkModule::Answer(const QByteArray& datagram, const void* sender, unsigned senderLength)
{
    const auto send = [&](const QByteArray& answer) {
        ::sendto(m_answerFd, answer.constData(), static_cast<std::size_t>(answer.size()), 0,
                 static_cast<const sockaddr*>(sender), senderLength);
    };
    if (datagram.size() >= 4 && static_cast<unsigned char>(datagram[kTagOffset]) == kQueryTag) {
        ++m_nQueries;
        send(SearchReply(m_setup.mac));
        return;
    }
    const auto request = ParseSetAddressRequest(datagram);
    if (!request || request->mac != m_setup.mac)
        return;  // someone else's, or nothing of ours
    const bool moved = MoveTo(request->address);
    std::uint32_t inUse = 0;
    std::function<void(const QString&)> callback;
    {
        std::lock_guard lock(m_mutex);
        inUse = AddressOf(m_setup.address);
        callback = m_onAddressChange;
    }
    send(SetAddressAnswer(m_setup.mac, inUse, moved ? 0 : 1));
    if (moved && callback)
        callback(Ipv4Text(inUse));
}

bool NetworkModule::MoveTo(std::uint32_t address)
{
    std::unique_ptr<TcpListener> listener;
    try {
        listener = std::make_unique<TcpListener>(Ipv4Text(address), m_nPort);
    } catch (const std::runtime_error&) {
        return false;  // not an address of this machine, or the port is taken there
    }
    const int answerFd = BoundUdpSocket(address, 0);
    if (answerFd < 0)
        return false;
    StopData();
    StartData(std::move(listener));
    CloseFd(m_answerFd);
    m_answerFd = answerFd;
    std::lock_guard lock(m_mutex);
    m_setup.address = Ipv4Text(address);
    return true;
}

}  // namespace quillon::sim
