#include "link/FdIo.h"

#ifdef Q_OS_UNIX
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>
#endif

namespace quillon::fdio {

#ifdef Q_OS_UNIX

ChannelStatus Send(int fd, Kind kind, const unsigned char* data, int length, int timeoutMs)
{
    while (length > 0) {
        const ssize_t n = kind == Kind::Socket ? ::send(fd, data, length, MSG_NOSIGNAL)
                                               : ::write(fd, data, length);
        if (n > 0) {
            data += n;
            length -= static_cast<int>(n);
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && errno != EAGAIN)
            return ChannelStatus::Lost;
        pollfd p{fd, POLLOUT, 0};
        const int r = ::poll(&p, 1, timeoutMs);
        if (r == 0)
            return ChannelStatus::Timeout;
        if (r < 0 && errno != EINTR)
            return ChannelStatus::Lost;
        if (p.revents & (POLLERR | POLLHUP | POLLNVAL))
            return ChannelStatus::Lost;
    }
    return ChannelStatus::Ok;
}

ChannelStatus Receive(int fd, unsigned char* buffer, int max, int& got, int timeoutMs)
{
    got = 0;
    pollfd p{fd, POLLIN, 0};
    int r;
    do {
        r = ::poll(&p, 1, timeoutMs);
    } while (r < 0 && errno == EINTR);
    if (r == 0)
        return ChannelStatus::Timeout;
    if (r < 0 || (p.revents & POLLNVAL))
        return ChannelStatus::Lost;
    // A pseudo-terminal whose other side closed reports POLLIN with the hang-up and reads 0.
    const ssize_t n = ::read(fd, buffer, static_cast<size_t>(max));
    if (n > 0) {
        got = static_cast<int>(n);
        return ChannelStatus::Ok;
    }
    if (n < 0 && (errno == EAGAIN || errno == EINTR) && !(p.revents & (POLLHUP | POLLERR)))
        return ChannelStatus::Timeout;
    return ChannelStatus::Lost;
}

void Discard(int fd, Kind kind)
{
    if (kind == Kind::Terminal) {
        ::tcflush(fd, TCIFLUSH);
        return;
    }
    unsigned char sink[256];
    while (::recv(fd, sink, sizeof sink, MSG_DONTWAIT) > 0) {
    }
}

#else

ChannelStatus Send(int, Kind, const unsigned char*, int, int) { return ChannelStatus::Lost; }
ChannelStatus Receive(int, unsigned char*, int, int& got, int)
{
    got = 0;
    return ChannelStatus::Lost;
}
void Discard(int, Kind) {}

#endif

}  // namespace quillon::fdio
