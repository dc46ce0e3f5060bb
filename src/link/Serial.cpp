#include "link/Serial.h"

#include "link/ChannelFactory.h"
#include "link/DeviceSearch.h"
#include "link/FrameLog.h"
#include "link/PortMap.h"

#include <algorithm>
#include <chrono>
#include <cstring>

namespace quillon {

namespace {

using Clock = std::chrono::steady_clock;

// Milliseconds left until `deadline`, rounded up so a wait never ends before it; 0 once passed.
int MsUntil(Clock::time_point deadline)
{
    const auto left = deadline - Clock::now();
    if (left <= Clock::duration::zero())
        return 0;
    return static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(left).count());
}

}  // namespace

CSerial::CSerial() = default;

CSerial::~CSerial()
{
    CSerial::Close();
}

// Runs `op` after every other operation, on the thread it belongs on: the I/O thread for
// opening and closing, and for byte I/O of a channel that can't run on any thread; the calling
// thread otherwise.
template <typename F>
void CSerial::Serialised(Work work, F&& op)
{
    if (m_thread.IsCurrent()) {
        op();  // called back from an operation under way on the I/O thread
        return;
    }
    std::lock_guard lock(m_mutex);
    if (work == Work::Io && m_channel && m_channel->AnyThreadIo()) {
        op();
        return;
    }
    m_thread.Run(std::function<void()>(std::forward<F>(op)));
}

void CSerial::DropChannel()
{
    // Closing belongs to the I/O thread, wherever the loss was noticed.
    m_thread.Run([this] {
        m_channel.reset();
        m_bOpen = false;
        m_strDescription.clear();
    });
}

int CSerial::InitComm(const QString& port, unsigned long baud, unsigned char dataBits,
                      unsigned char parity, float stopBits, unsigned long /*inQueue*/,
                      unsigned long /*outQueue*/)
{
    // Everything that reads process-wide state happens here, on the calling thread.
    OpenRequest request;
    request.m_strPortName = port;
    request.m_bTcp = port.compare(QLatin1String("TCPIP"), Qt::CaseInsensitive) == 0;
    request.m_line.m_nBaud = static_cast<int>(baud);
    request.m_line.m_nDataBits = dataBits;
    request.m_line.m_nStopBits = stopBits == 2.0f ? 2 : stopBits == 1.0f ? 1 : 0;
    request.m_peer = peerAddress;
    QString invalid;
    if (!ParityFromByte(parity, request.m_line.m_parity) || !IsSupportedLine(request.m_line)) {
        invalid = QStringLiteral("The line settings %1 baud, %2 data bits, parity %3, %4 stop "
                                 "bits are not supported.")
                      .arg(baud).arg(dataBits).arg(parity).arg(stopBits);
    } else if (!request.m_bTcp) {
        if (ComNumberFromName(port) == 0)
            invalid = QStringLiteral("%1 is not a port name.").arg(port);
        else
            request.m_strDevice = DeviceForPortName(port);
    }
    const ChannelFactory factory = CurrentChannelFactory();

    int result = 0;
    Serialised(Work::Lifetime, [&] {
        DropChannel();
        request.m_strMac = m_strMac;
        m_strOpenFailure = invalid;
        if (!invalid.isEmpty())
            return;
        QString reason;
        std::unique_ptr<Channel> channel = factory(request, reason);
        if (!channel || !channel->IsOpen()) {
            m_strOpenFailure = reason.isEmpty() ? QStringLiteral("%1 could not be opened.").arg(port)
                                                : reason;
            return;
        }
        m_strDescription = channel->Describe();
        m_channel = std::move(channel);
        m_bOpen = true;
        result = 1;
    });
    return result;
}

long CSerial::Close()
{
    Serialised(Work::Lifetime, [this] { DropChannel(); });
    return 0;
}

long CSerial::Write(const unsigned char* buffer, unsigned long length, unsigned long* written,
                    unsigned long timeoutMs)
{
    long result = 0;
    unsigned long sent = 0;
    Serialised(Work::Io, [&] {
        if (!m_channel)
            return;
        const ChannelStatus st =
            m_channel->Send(buffer, static_cast<int>(length), static_cast<int>(timeoutMs));
        if (st == ChannelStatus::Ok) {
            sent = length;
            result = 1;
        } else if (st == ChannelStatus::Lost) {
            DropChannel();
        }
    });
    if (written)
        *written = sent;
    return result;
}

long CSerial::ReadNow(unsigned char* buffer, unsigned long length, unsigned long* readCount,
                         unsigned long timeoutMs)
{
    *readCount = 0;
    if (!m_channel)
        return 0;
    int got = 0;
    const ChannelStatus st = m_channel->Receive(
        buffer, static_cast<int>(std::min<unsigned long>(length, 0x7FFFFFFF)), got,
        static_cast<int>(std::min<unsigned long>(timeoutMs, 0x7FFFFFFF)));
    if (st == ChannelStatus::Lost) {
        DropChannel();
        return 0;
    }
    *readCount = static_cast<unsigned long>(got);
    return 1;
}

long CSerial::Read(unsigned char* buffer, unsigned long length, unsigned long* readCount,
                   unsigned long timeoutMs)
{
    long result = 0;
    unsigned long count = 0;
    Serialised(Work::Io, [&] { result = ReadNow(buffer, length, &count, timeoutMs); });
    if (readCount)
        *readCount = count;
    return result;
}

void CSerial::PurgeInput()
{
    Serialised(Work::Io, [this] {
        if (m_channel)
            m_channel->DiscardInput();
    });
}

int CSerial::CheckFrameCrc(const unsigned char* data, unsigned long length)
{
    return quillon::CheckFrameCrc(data, length);
}

ErrType CSerial::CommandSend(const unsigned char* tx, unsigned long txLength, unsigned char* rx,
                             unsigned long rxLength)
{
    ErrType result = ErrComm;
    unsigned long got = 0;
    if (!FrameLogActive()) {
        Serialised(Work::Io, [&] { result = Transaction(tx, txLength, rx, rxLength, got); });
        return result;
    }
    FrameRecord record;
    Serialised(Work::Io, [&] {
        record.link = m_strDescription;  // before a lost line clears it
        record.sent = QDateTime::currentDateTime();
        result = Transaction(tx, txLength, rx, rxLength, got);
        record.answered = QDateTime::currentDateTime();
    });
    record.request = QByteArray(reinterpret_cast<const char*>(tx), qsizetype(txLength));
    record.reply = QByteArray(reinterpret_cast<const char*>(rx), qsizetype(std::min(got, rxLength)));
    record.result = result;
    LogFrame(record);
    return result;
}

ErrType CSerial::Transaction(const unsigned char* tx, unsigned long txLength, unsigned char* rx,
                             unsigned long rxLength, unsigned long& got)
{
    got = 0;
    if (rxLength > 0)
        std::memset(rx, 0, rxLength);
    if (!m_channel || txLength < 2)
        return ErrComm;

    // Whatever arrived since the last transaction (a late reply, line noise) is not ours.
    m_channel->DiscardInput();
    const std::chrono::milliseconds timeout = m_responseTimeout;
    switch (m_channel->Send(tx, static_cast<int>(txLength), static_cast<int>(timeout.count()))) {
    case ChannelStatus::Ok:
        break;
    case ChannelStatus::Timeout:
        return ErrTimeout;
    case ChannelStatus::Lost:
        DropChannel();
        return ErrComm;
    }

    const auto deadline = Clock::now() + timeout;
    while (got < rxLength) {
        const int wait = MsUntil(deadline);
        if (wait == 0)
            break;
        unsigned long n = 0;
        // Virtual: the drive link guards it against over-long requests.
        if (!Read(rx + got, rxLength - got, &n, static_cast<unsigned long>(wait)))
            return ErrComm;
        got += n;
        // An exception reply is five bytes long whatever the request expected.
        if (got >= kExceptionReplyLength && rx[1] != tx[1] &&
            CheckFrameCrc(rx, kExceptionReplyLength))
            return ErrNone;
    }
    if (got == rxLength && rxLength > 0)
        return CheckFrameCrc(rx, rxLength) ? ErrNone : ErrCrc;
    // The reply did not finish in time. A shorter frame that still closes with its CRC counts.
    if (got >= 2 && CheckFrameCrc(rx, got))
        return ErrNone;
    return ErrTimeout;
}

int CSerial::setIPAddress(const QString& mac, const QString& ip)
{
    return AssignModuleAddress(mac, ip);
}

void CSerial::GetStrMac(const QString& mac)
{
    std::lock_guard lock(m_mutex);
    m_strMac = mac;
}

QString CSerial::StrMac() const
{
    std::lock_guard lock(m_mutex);
    return m_strMac;
}

QString CSerial::OpenFailureDetail() const
{
    std::lock_guard lock(m_mutex);
    return m_strOpenFailure;
}

QString CSerial::LinkDescription() const
{
    std::lock_guard lock(m_mutex);
    return m_strDescription;
}

}  // namespace quillon
