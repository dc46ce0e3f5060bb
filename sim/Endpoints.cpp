#include "sim/Endpoints.h"

#include <QFile>
#include <arpa/inet.h>
#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <netinet/in.h>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace quillon::sim {

namespace {

[[noreturn]] void Fail(const std::string& what)
{
    throw std::runtime_error(what + ": " + std::strerror(errno));
}

speed_t Speed(int baud)
{
    switch (baud) {
    case 4800: return B4800;
    case 9600: return B9600;
    case 19200: return B19200;
    default: return B38400;
    }
}

void MakeRaw(int fd, const LineSettings& line)
{
    termios t{};
    if (::tcgetattr(fd, &t) != 0)
        Fail("tcgetattr");
    ::cfmakeraw(&t);
    t.c_cflag &= static_cast<tcflag_t>(~(CSIZE | PARENB | PARODD | CSTOPB | CRTSCTS));
    t.c_cflag |= CLOCAL | CREAD | (line.m_nDataBits == 7 ? CS7 : CS8);
    if (line.m_parity != Parity::None)
        t.c_cflag |= PARENB | (line.m_parity == Parity::Odd ? PARODD : 0);
    if (line.m_nStopBits == 2)
        t.c_cflag |= CSTOPB;
    t.c_cc[VMIN] = 1;
    t.c_cc[VTIME] = 0;
    ::cfsetspeed(&t, Speed(line.m_nBaud));
    if (::tcsetattr(fd, TCSANOW, &t) != 0)
        Fail("tcsetattr");
}

}  // namespace

PtyEndpoint::PtyEndpoint(const QString& linkPath) : m_strLink(linkPath)
{
    m_master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (m_master < 0 || ::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0)
        Fail("can't open a pseudo-terminal");
    char name[PATH_MAX];
    if (::ptsname_r(m_master, name, sizeof name) != 0)
        Fail("ptsname");
    m_strDevice = QString::fromLocal8Bit(name);
    m_slave = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (m_slave < 0)
        Fail("can't open " + std::string(name));
    MakeRaw(m_slave, LineSettings{});

    const QByteArray link = QFile::encodeName(linkPath);
    struct stat st{};
    if (::lstat(link.constData(), &st) == 0) {
        if (!S_ISLNK(st.st_mode)) {
            errno = EEXIST;
            Fail(link.toStdString() + " exists and is not a symbolic link");
        }
        ::unlink(link.constData());
    }
    if (::symlink(name, link.constData()) != 0)
        Fail("can't make the link " + link.toStdString());
}

PtyEndpoint::~PtyEndpoint()
{
    Close();
    const QByteArray link = QFile::encodeName(m_strLink);
    char target[PATH_MAX];
    const ssize_t n = ::readlink(link.constData(), target, sizeof target - 1);
    if (n > 0 && QString::fromLocal8Bit(target, static_cast<int>(n)) == m_strDevice)
        ::unlink(link.constData());
}

void PtyEndpoint::Close()
{
    if (m_slave >= 0)
        ::close(std::exchange(m_slave, -1));
    if (m_master >= 0)
        ::close(std::exchange(m_master, -1));
}

SerialDevice::SerialDevice(const QString& path, const LineSettings& line)
{
    m_fd = ::open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (m_fd < 0)
        Fail("can't open " + path.toStdString());
    MakeRaw(m_fd, line);
    ::tcflush(m_fd, TCIOFLUSH);
}

SerialDevice::~SerialDevice()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

void SerialDevice::Apply(const LineSettings& line)
{
    ::tcdrain(m_fd);
    MakeRaw(m_fd, line);
}

TcpListener::TcpListener(const QString& address, int port)
{
    sockaddr_in sa{};
    sa.sin_family = AF_INET;
    sa.sin_port = htons(static_cast<std::uint16_t>(port));
    if (::inet_pton(AF_INET, address.toLatin1().constData(), &sa.sin_addr) != 1) {
        errno = EINVAL;
        Fail("not an IPv4 address: " + address.toStdString());
    }
    m_fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (m_fd < 0)
        Fail("socket");
    const int one = 1;
    ::setsockopt(m_fd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
    if (::bind(m_fd, reinterpret_cast<const sockaddr*>(&sa), sizeof sa) != 0)
        Fail("can't listen on " + address.toStdString() + ":" + std::to_string(port));
    if (::listen(m_fd, 4) != 0)
        Fail("listen");
    socklen_t len = sizeof sa;
    ::getsockname(m_fd, reinterpret_cast<sockaddr*>(&sa), &len);
    m_nPort = ntohs(sa.sin_port);
}

TcpListener::~TcpListener()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

}  // namespace quillon::sim
