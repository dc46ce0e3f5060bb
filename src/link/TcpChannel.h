#pragma once
// A TCP connection to a network module that passes RTU frames to its serial line unchanged.
// QTcpSocket connects and closes; the bytes go straight through the socket's descriptor on
// the thread of the transaction where the system allows it (POSIX), elsewhere through
// QTcpSocket's blocking calls on the link's thread.

#include "link/Channel.h"
#include "link/LineSettings.h"

#include <QTcpSocket>
#include <atomic>
#include <memory>

namespace quillon {

// How long opening the link waits for the module to accept the connection.
inline constexpr int kTcpConnectTimeoutMs = 3000;

class TcpChannel final : public Channel {
public:
    // Connects to `peer` (its port, or kModuleDataPort when it names none). nullptr and a
    // `reason` when the module can't be reached.
    static std::unique_ptr<TcpChannel> Open(const PeerAddress& peer, QString& reason);
    ~TcpChannel() override;

    bool AnyThreadIo() const override { return m_fd >= 0; }
    bool IsOpen() const override;
    void Close() override;
    void DiscardInput() override;
    ChannelStatus Send(const unsigned char* data, int length, int timeoutMs) override;
    ChannelStatus Receive(unsigned char* buffer, int max, int& got, int timeoutMs) override;
    QString Describe() const override { return m_strPeer; }

private:
    TcpChannel() = default;
    ChannelStatus Lose();

    QTcpSocket m_socket;
    QString m_strPeer;
    int m_fd = -1;  // the socket's descriptor for direct I/O; -1: QTcpSocket's calls
    std::atomic<bool> m_bLost{false};
};

}  // namespace quillon
