#include "link/TcpChannel.h"

#include "link/FdIo.h"

#include <QHostAddress>
#include <QNetworkProxy>

namespace quillon {

std::unique_ptr<TcpChannel> TcpChannel::Open(const PeerAddress& peer, QString& reason)
{
    if (peer.m_nAddress == 0) {
        reason = QStringLiteral("No network module has been chosen.");
        return nullptr;
    }
    std::unique_ptr<TcpChannel> ch(new TcpChannel);
    const quint16 port = peer.m_nPort != 0 ? peer.m_nPort : kModuleDataPort;
    ch->m_strPeer = QStringLiteral("%1:%2").arg(peer.AddressText()).arg(port);
    // A module on the plant's network is reached directly, never through a proxy.
    ch->m_socket.setProxy(QNetworkProxy::NoProxy);
    ch->m_socket.connectToHost(QHostAddress(static_cast<quint32>(peer.m_nAddress)), port);
    if (!ch->m_socket.waitForConnected(kTcpConnectTimeoutMs)) {
        reason = QStringLiteral("The network module at %1 can't be reached: %2.")
                     .arg(ch->m_strPeer, ch->m_socket.errorString());
        return nullptr;
    }
    // Frames are small and every one waits for its answer: send each at once.
    ch->m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    if (fdio::kAvailable)
        ch->m_fd = static_cast<int>(ch->m_socket.socketDescriptor());
    return ch;
}

TcpChannel::~TcpChannel()
{
    Close();
}

bool TcpChannel::IsOpen() const
{
    return !m_bLost && m_socket.state() == QAbstractSocket::ConnectedState;
}

void TcpChannel::Close()
{
    if (m_socket.state() != QAbstractSocket::UnconnectedState)
        m_socket.abort();
}

ChannelStatus TcpChannel::Lose()
{
    m_bLost = true;
    return ChannelStatus::Lost;
}

void TcpChannel::DiscardInput()
{
    if (!IsOpen())
        return;
    if (m_fd >= 0) {
        fdio::Discard(m_fd, fdio::Kind::Socket);
        return;
    }
    // Pull in what the system holds for us without waiting, then drop it.
    m_socket.waitForReadyRead(0);
    m_socket.readAll();
}

ChannelStatus TcpChannel::Send(const unsigned char* data, int length, int timeoutMs)
{
    if (!IsOpen())
        return ChannelStatus::Lost;
    if (m_fd >= 0) {
        const ChannelStatus st = fdio::Send(m_fd, fdio::Kind::Socket, data, length, timeoutMs);
        return st == ChannelStatus::Lost ? Lose() : st;
    }
    if (m_socket.write(reinterpret_cast<const char*>(data), length) != length)
        return Lose();
    while (m_socket.bytesToWrite() > 0) {
        if (!m_socket.waitForBytesWritten(timeoutMs)) {
            if (m_socket.error() == QAbstractSocket::SocketTimeoutError &&
                m_socket.state() == QAbstractSocket::ConnectedState)
                return ChannelStatus::Timeout;
            return Lose();
        }
    }
    return ChannelStatus::Ok;
}

ChannelStatus TcpChannel::Receive(unsigned char* buffer, int max, int& got, int timeoutMs)
{
    got = 0;
    if (m_bLost)
        return ChannelStatus::Lost;
    if (m_fd >= 0) {
        const ChannelStatus st = fdio::Receive(m_fd, buffer, max, got, timeoutMs);
        return st == ChannelStatus::Lost ? Lose() : st;
    }
    if (m_socket.bytesAvailable() == 0 && !m_socket.waitForReadyRead(timeoutMs)) {
        if (m_socket.error() == QAbstractSocket::SocketTimeoutError &&
            m_socket.state() == QAbstractSocket::ConnectedState)
            return ChannelStatus::Timeout;
        // The module closed the connection or the network failed.
        if (m_socket.bytesAvailable() == 0)
            return Lose();
    }
    const qint64 n = m_socket.read(reinterpret_cast<char*>(buffer), max);
    if (n < 0)
        return Lose();
    got = static_cast<int>(n);
    return got > 0 ? ChannelStatus::Ok : ChannelStatus::Timeout;
}

}  // namespace quillon
