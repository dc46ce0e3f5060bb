#include "link/SerialChannel.h"

#include "link/FdIo.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <linux/serial.h>
#include <sys/ioctl.h>
#endif

namespace quillon {

bool RequestLowLatency(qintptr handle)
{
#ifdef Q_OS_LINUX
    serial_struct ss{};
    if (::ioctl(static_cast<int>(handle), TIOCGSERIAL, &ss) != 0)
        return false;  // ENOTTY / EINVAL: no such setting on this device
    if (ss.flags & ASYNC_LOW_LATENCY)
        return true;
    ss.flags |= ASYNC_LOW_LATENCY;
    return ::ioctl(static_cast<int>(handle), TIOCSSERIAL, &ss) == 0;
#else
    Q_UNUSED(handle);
    return false;
#endif
}

namespace {

QString NoPermission(const QString& path)
{
    return QStringLiteral("No permission to open %1. Add your user to the dialout group "
                          "(sudo usermod -aG dialout $USER) and log in again.")
        .arg(path);
}

QString OpenFailureReason(const QString& path, QSerialPort::SerialPortError error,
                          const QString& systemText)
{
#ifdef Q_OS_UNIX
    // A device (or a folder on the way to it) this user may not even look at is there all the
    // same: saying it does not exist would send the person looking for a cable fault.
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0 && errno == EACCES)
        return NoPermission(path);
#endif
    const QFileInfo info(path);
    if (error == QSerialPort::DeviceNotFoundError || !info.exists())
        return QStringLiteral("The device %1 does not exist (unplugged or wrong name).").arg(path);
    if (error == QSerialPort::OpenError)
        return QStringLiteral("The device %1 is busy: another program has it open.").arg(path);
    if (error == QSerialPort::PermissionError) {
#ifdef Q_OS_UNIX
        const QByteArray native = QFile::encodeName(info.canonicalFilePath());
        if (::access(native.constData(), R_OK | W_OK) == 0)
            return QStringLiteral("The device %1 is busy: another program has it open.").arg(path);
        return NoPermission(path);
#endif
    }
    return QStringLiteral("The device %1 could not be opened: %2.").arg(path, systemText);
}

QSerialPort::Parity QtParity(Parity p)
{
    switch (p) {
    case Parity::Odd: return QSerialPort::OddParity;
    case Parity::Even: return QSerialPort::EvenParity;
    case Parity::None: break;
    }
    return QSerialPort::NoParity;
}

}  // namespace

std::unique_ptr<SerialChannel> SerialChannel::Open(const QString& devicePath,
                                                   const LineSettings& line, QString& reason,
                                                   SerialIo io)
{
    std::unique_ptr<SerialChannel> ch(new SerialChannel);
    QSerialPort& port = ch->m_port;
    ch->m_strPath = devicePath;
    ch->m_io = fdio::kAvailable ? io : SerialIo::QtBlocking;
    // The port is locked by the device it reaches, not by the name it was given: a symbolic
    // link (a pinned name) and its target must not both open the same line.
    const QString device = QFileInfo(devicePath).canonicalFilePath();
    port.setPortName(device.isEmpty() ? devicePath : device);
    port.setBaudRate(line.m_nBaud);
    port.setDataBits(line.m_nDataBits == 7 ? QSerialPort::Data7 : QSerialPort::Data8);
    port.setParity(QtParity(line.m_parity));
    port.setStopBits(line.m_nStopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop);
    port.setFlowControl(QSerialPort::NoFlowControl);
    if (!port.open(QIODevice::ReadWrite)) {
        reason = OpenFailureReason(devicePath, port.error(), port.errorString());
        return nullptr;
    }
    ch->m_fd = static_cast<int>(port.handle());
    ch->m_bLowLatency = RequestLowLatency(port.handle());
    port.clear(QSerialPort::AllDirections);
    return ch;
}

SerialChannel::~SerialChannel()
{
    Close();
}

bool SerialChannel::IsOpen() const
{
    return m_port.isOpen() && !m_bLost;
}

void SerialChannel::Close()
{
    if (m_port.isOpen())
        m_port.close();
}

ChannelStatus SerialChannel::Lose()
{
    // A vanished device keeps reporting errors while the port still counts as open; from now
    // on the channel answers Lost until its owner closes it.
    m_bLost = true;
    return ChannelStatus::Lost;
}

void SerialChannel::DiscardInput()
{
    if (!IsOpen())
        return;
    if (m_io == SerialIo::Direct)
        fdio::Discard(m_fd, fdio::Kind::Terminal);
    else
        m_port.clear(QSerialPort::Input);  // the driver's queue and our own buffer
}

ChannelStatus SerialChannel::Send(const unsigned char* data, int length, int timeoutMs)
{
    if (!IsOpen())
        return ChannelStatus::Lost;
    if (m_io == SerialIo::Direct) {
        const ChannelStatus st = fdio::Send(m_fd, fdio::Kind::Terminal, data, length, timeoutMs);
        return st == ChannelStatus::Lost ? Lose() : st;
    }
    m_port.clearError();
    if (m_port.write(reinterpret_cast<const char*>(data), length) != length)
        return Lose();
    while (m_port.bytesToWrite() > 0) {
        if (!m_port.waitForBytesWritten(timeoutMs))
            return m_port.error() == QSerialPort::TimeoutError ? ChannelStatus::Timeout : Lose();
    }
    return ChannelStatus::Ok;
}

ChannelStatus SerialChannel::Receive(unsigned char* buffer, int max, int& got, int timeoutMs)
{
    got = 0;
    if (!IsOpen())
        return ChannelStatus::Lost;
    if (m_io == SerialIo::Direct) {
        const ChannelStatus st = fdio::Receive(m_fd, buffer, max, got, timeoutMs);
        return st == ChannelStatus::Lost ? Lose() : st;
    }
    if (m_port.bytesAvailable() == 0) {
        m_port.clearError();
        if (!m_port.waitForReadyRead(timeoutMs)) {
            const auto error = m_port.error();
            if (error == QSerialPort::TimeoutError || error == QSerialPort::NoError)
                return ChannelStatus::Timeout;
            // ReadError (a pty whose other end closed, a pulled USB adapter) and ResourceError
            // both mean the line is gone.
            return Lose();
        }
    }
    const qint64 n = m_port.read(reinterpret_cast<char*>(buffer), max);
    if (n < 0)
        return Lose();
    got = static_cast<int>(n);
    return got > 0 ? ChannelStatus::Ok : ChannelStatus::Timeout;
}

}  // namespace quillon
