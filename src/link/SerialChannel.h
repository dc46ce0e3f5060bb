#pragma once
// A serial port as a channel. QSerialPort opens it (with its lock against other programs),
// sets the line up and closes it. The bytes themselves go straight through the port's
// descriptor on the thread of the transaction where the system allows it (POSIX), the way a
// plain C master does; elsewhere through QSerialPort's blocking calls on the link's thread.

#include "link/Channel.h"
#include "link/LineSettings.h"

#include <QSerialPort>
#include <atomic>
#include <memory>

namespace quillon {

enum class SerialIo {
    Direct,      // the descriptor, on any thread (where the system offers one)
    QtBlocking,  // QSerialPort's blocking calls, on the thread that opened the port
};

class SerialChannel final : public Channel {
public:
    // Opens `devicePath` ("/dev/ttyUSB0", a pinned pseudo-terminal) with `line`. On failure
    // returns nullptr and sets `reason` to a sentence saying why: the device is missing, in use
    // by another program, or not permitted (with the hint to join the dialout group).
    static std::unique_ptr<SerialChannel> Open(const QString& devicePath, const LineSettings& line,
                                               QString& reason, SerialIo io = SerialIo::Direct);
    ~SerialChannel() override;

    bool AnyThreadIo() const override { return m_io == SerialIo::Direct; }
    bool IsOpen() const override;
    void Close() override;
    void DiscardInput() override;
    ChannelStatus Send(const unsigned char* data, int length, int timeoutMs) override;
    ChannelStatus Receive(unsigned char* buffer, int max, int& got, int timeoutMs) override;
    QString Describe() const override { return m_strPath; }

    // Whether the driver agreed to low-latency mode (USB adapters; pseudo-terminals refuse).
    bool LowLatency() const { return m_bLowLatency; }

private:
    SerialChannel() = default;
    ChannelStatus Lose();

    QSerialPort m_port;
    QString m_strPath;
    int m_fd = -1;
    SerialIo m_io = SerialIo::Direct;
    bool m_bLowLatency = false;
    std::atomic<bool> m_bLost{false};
};

// Asks the driver behind an open serial descriptor to hand over received bytes at once instead
// of collecting them for its latency timer (16 ms on many USB adapters, which would add to
// every reply). Returns true when the driver took it; false where the device has no such
// setting (pseudo-terminals answer ENOTTY) or on other systems.
bool RequestLowLatency(qintptr handle);

}  // namespace quillon
