#pragma once
// CSerial: the transport under every exchange with a drive. It opens a serial line ("COMn") or
// a TCP connection to a network module ("TCPIP") and performs one Modbus RTU transaction per
// CommandSend call: send the request, wait for the reply, check its CRC, return an ErrType.
//
// Threads. All public operations may be called from any thread (the interface thread, the
// auto-refresh worker); a mutex lets one run at a time and the caller blocks until it is done.
// The channel and its Qt objects are opened, closed and destroyed on the link's own I/O thread
// (LinkThread.h). A transaction runs on the calling thread when the channel's byte I/O allows
// it (serial ports and TCP on POSIX systems, the in-process simulator), so it costs no
// hand-over between threads; otherwise it runs on the I/O thread. Virtual operations that a
// transaction calls back (Read, CheckFrameCrc) run on the thread of the transaction.
//
// Timing. CommandSend returns as soon as the reply is complete: when the expected number of
// bytes is in, or, for a drive's exception reply, when five bytes are in whose function byte
// differs from the request's and whose CRC is good. Only a missing or unfinished reply waits
// out kResponseTimeoutMs. A line that disappears (adapter pulled, pseudo-terminal closed,
// module gone) ends the transaction at once with ErrComm and closes the link.

#include "link/Channel.h"
#include "link/LineSettings.h"
#include "link/LinkResult.h"
#include "link/LinkThread.h"
#include "link/ModbusFrame.h"

#include <QString>
#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>

namespace quillon {

// Character time on the slowest line a drive offers: 4800 baud, 11 bits a character.
inline constexpr int kSlowestCharMicros = 11 * 1'000'000 / 4800;  // 2291 us
// The longest exchange: a 23-register write (55 bytes) and its 8-byte answer.
inline constexpr int kLongestExchangeMs =
    ((kMaxFrameLength + kWriteReplyLength) * kSlowestCharMicros + 999) / 1000;  // 145 ms
// Time a drive may take between the end of a request and its answer; it stores a written
// group before it answers.
inline constexpr int kDriveAnswerAllowanceMs = 355;
// How long CommandSend waits for a reply, counted from the moment the request was handed to
// the line: the longest exchange at 4800 baud plus the drive's allowance.
inline constexpr int kResponseTimeoutMs = kLongestExchangeMs + kDriveAnswerAllowanceMs;
static_assert(kResponseTimeoutMs == 500);

// Default time-out of Write (the broadcast).
inline constexpr unsigned long kWriteTimeoutMs = 800;
// Size of the driver queues InitComm is given; kept for the callers' sake, the queues of
// this platform size themselves.
inline constexpr unsigned long kQueueSize = 2048;

class CSerial {
public:
    CSerial();
    virtual ~CSerial();
    CSerial(const CSerial&) = delete;
    CSerial& operator=(const CSerial&) = delete;

    // Opens the link. `port` is "COM1".."COMn" (also "\\.\COM10" and up), looked up as
    // PortMap.h says, or "TCPIP" for the module in `peerAddress`. Baud 4800..38400, data bits
    // 7 or 8, parity 0 none / 1 odd / 2 even, stop bits 1.0 or 2.0. An open link is closed
    // first. Returns 1 on success, 0 on failure (OpenFailureDetail() then says why).
    virtual int InitComm(const QString& port, unsigned long baud, unsigned char dataBits,
                         unsigned char parity, float stopBits, unsigned long inQueue = kQueueSize,
                         unsigned long outQueue = kQueueSize);

    // Closes whatever InitComm opened. Returns 0.
    virtual long Close();

    // Sends `length` bytes without awaiting any answer (a broadcast). Returns 1 when all
    // bytes went out within `timeoutMs`, else 0. `written` (may be null) gets the count sent.
    virtual long Write(const unsigned char* buffer, unsigned long length,
                       unsigned long* written = nullptr, unsigned long timeoutMs = kWriteTimeoutMs);

    // Waits at most `timeoutMs` for input and delivers up to `length` bytes; `readCount` gets
    // how many (0 when nothing came). Returns 1 when the line is usable, 0 when it is closed,
    // lost or the read was refused.
    virtual long Read(unsigned char* buffer, unsigned long length, unsigned long* readCount,
                      unsigned long timeoutMs);

    // One transaction, see the header comment. `rx` is zero-filled first and receives up to
    // `rxLength` bytes.
    virtual ErrType CommandSend(const unsigned char* tx, unsigned long txLength, unsigned char* rx,
                                unsigned long rxLength);

    // Whether the last two of `length` bytes are the frame's CRC: 1 or 0.
    virtual int CheckFrameCrc(const unsigned char* data, unsigned long length);

    // How long CommandSend waits for a reply; kResponseTimeoutMs unless set. Only a peer in
    // the same process that answers at once (a fuzz harness) has reason to shorten it.
    void SetResponseTimeout(std::chrono::milliseconds timeout) { m_responseTimeout = timeout; }

    // Tells the network module with `mac` ("00-20-4a-14-01-18") to take the IPv4 address `ip`.
    // Needs no open link: the module is reached by its MAC (DeviceSearch.h). Non-zero when the
    // module took the address.
    virtual int setIPAddress(const QString& mac, const QString& ip);

    // The MAC text of the module the "TCPIP" path is about to connect to.
    void GetStrMac(const QString& mac);
    QString StrMac() const;

    bool IsOpen() const { return m_bOpen.load(); }
    // Why the last InitComm failed, one sentence; empty after a success.
    QString OpenFailureDetail() const;
    // What the open link is connected to ("/tmp/sim0", "127.0.0.1:10001"); empty when closed.
    QString LinkDescription() const;

    // The module's socket address for the "TCPIP" path.
    PeerAddress peerAddress;

protected:
    // Throws away input received and not read yet.
    void PurgeInput();

private:
    enum class Work { Lifetime, Io };
    template <typename F>
    void Serialised(Work work, F&& op);
    // `got`: how many reply bytes came, for the frame log.
    ErrType Transaction(const unsigned char* tx, unsigned long txLength, unsigned char* rx,
                        unsigned long rxLength, unsigned long& got);
    long ReadNow(unsigned char* buffer, unsigned long length, unsigned long* readCount,
                 unsigned long timeoutMs);
    void DropChannel();

    LinkThread m_thread;  // declared first: it outlives the channel
    // One operation at a time; recursive because a transaction's callbacks (the virtual Read)
    // come back through the public operations. Guards the channel and the texts below.
    mutable std::recursive_mutex m_mutex;
    std::unique_ptr<Channel> m_channel;  // created and destroyed on the I/O thread
    std::atomic<bool> m_bOpen{false};
    std::atomic<std::chrono::milliseconds> m_responseTimeout{
        std::chrono::milliseconds(kResponseTimeoutMs)};
    QString m_strOpenFailure;
    QString m_strDescription;
    QString m_strMac;
};

}  // namespace quillon
