#include "sim/StreamServer.h"

#include "sim/FrameAssembler.h"

#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace quillon::sim {

namespace {

// Replies are paced in steps of a fraction of a millisecond; the kernel's default timer slack
// (50 us) would blur them.
void SharpenTimers()
{
    ::prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
}

bool WriteAll(int fd, const unsigned char* data, std::size_t length)
{
    while (length > 0) {
        const ssize_t n = ::write(fd, data, length);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            if (errno == EAGAIN) {
                pollfd p{fd, POLLOUT, 0};
                ::poll(&p, 1, 100);
                continue;
            }
            return false;
        }
        data += n;
        length -= static_cast<std::size_t>(n);
    }
    return true;
}

}  // namespace

StreamServer::StreamServer(SimBus& bus) : m_bus(bus)
{
    if (::pipe2(m_wake, O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::runtime_error("can't create the wake-up pipe");
}

StreamServer::~StreamServer()
{
    ::close(m_wake[0]);
    ::close(m_wake[1]);
}

void StreamServer::Stop()
{
    m_bStop = true;
    const char c = 0;
    [[maybe_unused]] const ssize_t n = ::write(m_wake[1], &c, 1);
}

bool StreamServer::WaitReadable(int fd, int timeoutMs, bool& hangup)
{
    hangup = false;
    pollfd p[2] = {{fd, POLLIN, 0}, {m_wake[0], POLLIN, 0}};
    const int r = ::poll(p, 2, timeoutMs);
    if (m_bStop)
        return false;
    if (r <= 0)
        return false;
    if (!(p[0].revents & POLLIN) && (p[0].revents & (POLLHUP | POLLERR | POLLNVAL)))
        hangup = true;
    return (p[0].revents & POLLIN) != 0;
}

bool StreamServer::Transmit(int fd, const ScheduledReply& reply)
{
    std::size_t sent = 0;
    while (sent < reply.bytes.size()) {
        std::this_thread::sleep_until(reply.Due(sent));
        // Everything due by now goes out in one write.
        const SimTime now = SimClock::now();
        std::size_t end = sent + 1;
        while (end < reply.bytes.size() && reply.Due(end) <= now)
            ++end;
        if (!WriteAll(fd, reply.bytes.data() + sent, end - sent))
            return false;
        sent = end;
    }
    return true;
}

StreamServer::End StreamServer::Serve(int fd,
                                      const std::function<void(const LineSettings&)>& onLineChange)
{
    SharpenTimers();
    FrameAssembler frames(m_bus.Timing().SilenceSeconds());
    unsigned char buffer[512];
    while (!m_bStop) {
        int timeoutMs = 1000;
        if (const auto deadline = frames.SilenceDeadline()) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - SimClock::now());
            timeoutMs = static_cast<int>(std::max<long long>(left.count(), 0));
        }
        bool hangup = false;
        if (WaitReadable(fd, timeoutMs, hangup)) {
            const ssize_t n = ::read(fd, buffer, sizeof buffer);
            if (n == 0 || (n < 0 && errno != EINTR && errno != EAGAIN))
                return End::Closed;
            if (n > 0)
                frames.Push(buffer, static_cast<int>(n), SimClock::now());
        } else if (hangup) {
            return End::Closed;
        }
        if (m_bStop)
            break;
        while (auto frame = frames.Take(SimClock::now())) {
            const int generation = m_bus.LineGeneration();
            const auto reply = m_bus.Handle(frame->bytes, frame->firstByte);
            if (reply && !Transmit(fd, *reply))
                return End::Closed;
            if (m_bus.LineGeneration() != generation) {
                frames.SetSilence(m_bus.Timing().SilenceSeconds());
                if (onLineChange)
                    onLineChange(m_bus.Line());
            }
        }
    }
    return End::Stopped;
}

void StreamServer::ServeListener(int listenFd)
{
    while (!m_bStop) {
        bool hangup = false;
        if (!WaitReadable(listenFd, 1000, hangup))
            continue;
        const int client = ::accept4(listenFd, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0)
            continue;
        const int one = 1;
        ::setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
        Serve(client);
        ::close(client);
    }
}

}  // namespace quillon::sim
