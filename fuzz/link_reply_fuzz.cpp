// A drive's answer, any bytes at all, to each kind of request the program sends: a read of 1 to
// 23 registers (0x03), a single write (0x06), a multiple write of 1 to 23 registers (0x10), a
// read whose expected length the link's guard refuses, and a read through the register reader
// the drive queries use. The bytes come back through an in-memory channel, in pieces of a size
// the input chooses, and run the whole reply path: CommandSend with its CRC and exception-reply
// checks, then the judging of every kind of caller.
//
// Input: [kind] [count] [line] [station] reply bytes...
//   kind % 5:     0 read, 1 single write, 2 multiple write, 3 guarded read, 4 register reader
//   kind / 5:     the caller the register reader judges for
//   line bit 0-2: piece size (0 = all that is asked for at once)
//   line bit 3:   the line is lost once the reply is out (else it just stays silent)
//   line bit 4:   stale bytes wait on the line before the request (the link must drop them)
//   line bit 5-6: 1 = the request can't be sent in time, 2 = the line is lost on sending
//   line bit 7:   the link runs its byte I/O on its own thread
//
// Besides not crashing, the link must hold to what it promises whatever the bytes: the receive
// buffer holds exactly what the channel delivered, zeros behind it; nothing beyond the expected
// length is asked for; a result 0 means a frame that closes with its CRC; a CRC failure means
// the whole expected length arrived; the verdicts agree with the result and the function byte.
#include "link/ChannelFactory.h"
#include "link/DriveSerial.h"
#include "link/LinkResult.h"
#include "link/ModbusFrame.h"
#include "link/RegisterReaders.h"
#include "link/ReplyJudge.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <vector>

namespace {

using namespace quillon;

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "link reply: %s\n", what);
    std::abort();
}

// What the channel does during one transaction; set by the input, read by the channel.
struct Script {
    const unsigned char* reply = nullptr;
    size_t replyLength = 0;
    int pieceSize = 0;
    bool loseAfterReply = false;
    bool staleInput = false;
    ChannelStatus sendStatus = ChannelStatus::Ok;
    bool anyThreadIo = true;

    // Filled in by the channel.
    size_t delivered = 0;
    bool sent = false;
    bool discarded = false;
    bool overAsked = false;
    unsigned long expected = 0;  // the expected reply length, to check what is asked for
    std::vector<unsigned char> pending;
};

Script g_script;

class FuzzChannel final : public Channel {
public:
    explicit FuzzChannel(bool anyThreadIo) : m_bAnyThreadIo(anyThreadIo) {}

    bool AnyThreadIo() const override { return m_bAnyThreadIo; }
    bool IsOpen() const override { return m_bOpen; }
    void Close() override { m_bOpen = false; }
    void DiscardInput() override {
        g_script.pending.clear();
        g_script.discarded = true;
    }
    ChannelStatus Send(const unsigned char*, int, int) override {
        if (!m_bOpen) return ChannelStatus::Lost;
        if (g_script.sendStatus == ChannelStatus::Lost) m_bOpen = false;
        if (g_script.sendStatus != ChannelStatus::Ok) return g_script.sendStatus;
        g_script.sent = true;
        g_script.pending.insert(g_script.pending.end(), g_script.reply,
                                g_script.reply + g_script.replyLength);
        return ChannelStatus::Ok;
    }
    // Answers at once: the next piece, or "nothing" when the reply is out.
    ChannelStatus Receive(unsigned char* buffer, int max, int& got, int) override {
        got = 0;
        if (!m_bOpen) return ChannelStatus::Lost;
        if (max < 0 || g_script.delivered + static_cast<unsigned long>(max) > g_script.expected)
            g_script.overAsked = true;
        auto& pending = g_script.pending;
        if (pending.empty()) {
            if (g_script.loseAfterReply && g_script.sent) {
                m_bOpen = false;
                return ChannelStatus::Lost;
            }
            return ChannelStatus::Timeout;
        }
        size_t n = std::min(pending.size(), static_cast<size_t>(std::max(max, 0)));
        if (g_script.pieceSize > 0) n = std::min(n, static_cast<size_t>(g_script.pieceSize));
        if (n == 0) return ChannelStatus::Timeout;
        std::memcpy(buffer, pending.data(), n);
        pending.erase(pending.begin(), pending.begin() + static_cast<std::ptrdiff_t>(n));
        if (g_script.sent) g_script.delivered += n;
        got = static_cast<int>(n);
        return ChannelStatus::Ok;
    }
    QString Describe() const override { return QStringLiteral("fuzz input"); }

private:
    bool m_bAnyThreadIo;
    bool m_bOpen = true;
};

// The link lives for the whole run; a lost line or another I/O mode opens it again.
struct Link {
    Link()
        : factory([](const OpenRequest&, QString&) -> std::unique_ptr<Channel> {
              return std::make_unique<FuzzChannel>(g_script.anyThreadIo);
          }) {
        // The channel answers at once; only a reply that stays short waits, so keep that short.
        serial.SetResponseTimeout(std::chrono::milliseconds(1));
    }
    void Ready(bool anyThreadIo) {
        if (serial.IsOpen() && anyThreadIo == openAnyThread) return;
        openAnyThread = anyThreadIo;
        if (serial.InitComm(QStringLiteral("TCPIP"), 19200, 8, 0, 2.0f) != 1)
            Fail("the link does not open on the fuzz channel");
    }
    ScopedChannelFactory factory;
    CDriveSerial serial;
    bool openAnyThread = true;
};

constexpr ReplyCaller kCallers[] = {
    ReplyCaller::GroupRead,          ReplyCaller::GroupWrite,    ReplyCaller::Identification,
    ReplyCaller::RunStatus,          ReplyCaller::RunSourceAtConnect,
    ReplyCaller::TakeOverIdentification,
    ReplyCaller::PasswordState,      ReplyCaller::PageAccess,    ReplyCaller::Polling,
};
constexpr size_t kCallerCount = std::size(kCallers);

// Callers that always have something to say about a failed transaction.
bool AlwaysSpeaks(ReplyCaller caller) {
    return caller == ReplyCaller::GroupRead || caller == ReplyCaller::GroupWrite ||
           caller == ReplyCaller::Identification || caller == ReplyCaller::RunSourceAtConnect ||
           caller == ReplyCaller::TakeOverIdentification || caller == ReplyCaller::PasswordState;
}

// The reader's verdict and values against the bytes the line delivered.
void CheckRegisterReader(ReplyCaller caller, const ReplyVerdict& v, const std::uint16_t* values,
                         int count) {
    const Script& s = g_script;
    const auto at = [&](size_t i) -> unsigned { return i < s.delivered ? s.reply[i] : 0; };
    if (v.ok && v.exception) Fail("register reader: success and exception at once");
    if (v.ok && at(1) != ModbusFn::ReadHolding) Fail("register reader: success without 0x03");
    if (v.exception && at(1) == ModbusFn::ReadHolding) Fail("register reader: exception with 0x03");
    if (!v.ok && v.text.isEmpty() && (AlwaysSpeaks(caller) || v.exception))
        Fail("register reader: a failure without words");
    if (!v.ok) return;
    for (int i = 0; i < count; ++i) {
        const unsigned want = at(3 + 2 * static_cast<size_t>(i)) << 8 | at(4 + 2 * static_cast<size_t>(i));
        if (values[i] != want) Fail("register reader values are not the reply's registers");
    }
}

void CheckVerdicts(int result, const unsigned char* rx, const unsigned char* tx, int station,
                   int registers) {
    const bool same = result == ErrNone && rx[1] == tx[1];
    for (const ReplyCaller caller : kCallers) {
        const ReplyVerdict v = JudgeReply(caller, result, rx, tx[1], station, 3);
        if (v.ok != same) Fail("verdict disagrees with result and function byte");
        if (v.exception != (result == ErrNone && !same)) Fail("exception flag");
        if (v.ok && !v.text.isEmpty()) Fail("a success with words");
        if (!v.ok && v.text.isEmpty() && (AlwaysSpeaks(caller) || v.exception))
            Fail("a failure without words");
    }
    if (same) {
        // What a read's caller then does: take the registers from offset 3.
        unsigned sum = 0;
        for (int i = 0; i < registers; ++i) sum += FrameWord(rx, 3 + 2 * i);
        (void)sum;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static Link link;
    if (size < 4) return 0;
    const unsigned kind = data[0] % 5;
    const ReplyCaller readerCaller = kCallers[(data[0] / 5) % kCallerCount];
    const int count = 1 + data[1] % kMaxRegistersPerFrame;
    const unsigned line = data[2];
    const int station = 1 + data[3] % 32;

    g_script = Script{};
    g_script.reply = data + 4;
    g_script.replyLength = size - 4;
    g_script.pieceSize = static_cast<int>(line & 7);
    g_script.loseAfterReply = (line & 8) != 0;
    g_script.staleInput = (line & 16) != 0;
    g_script.sendStatus = ((line >> 5) & 3) == 1   ? ChannelStatus::Timeout
                          : ((line >> 5) & 3) == 2 ? ChannelStatus::Lost
                                                   : ChannelStatus::Ok;
    g_script.anyThreadIo = (line & 128) == 0;
    link.Ready(g_script.anyThreadIo);
    if (g_script.staleInput) g_script.pending.assign({0xEE, 0x03, 0x02, 0x00});

    std::array<unsigned char, kMaxFrameLength> tx{};
    std::vector<std::uint16_t> values(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) values[static_cast<size_t>(i)] = static_cast<std::uint16_t>(i * 257);
    int txLength = 0;
    unsigned long rxLength = 0;
    int registers = 0;
    switch (kind) {
    case 0:
        txLength = BuildReadFrame(tx, station, 0x0100, count);
        rxLength = static_cast<unsigned long>(ReadReplyLength(count));
        registers = count;
        break;
    case 1:
        txLength = BuildWriteSingleFrame(tx, station, 0x0203, 0x1388);
        rxLength = kWriteReplyLength;
        break;
    case 2:
        txLength = BuildWriteMultipleFrame(tx, station, 0x0A00, values);
        rxLength = kWriteReplyLength;
        break;
    case 3:
        // A caller asking for more than any frame can be: the guard refuses the read.
        txLength = BuildReadFrame(tx, station, 0x0100, count);
        rxLength = kReadGuardLimit + static_cast<unsigned long>(count);
        break;
    default: {
        g_script.expected = static_cast<unsigned long>(ReadReplyLength(count));
        std::array<std::uint16_t, kMaxRegistersPerFrame> regs{};
        const ReplyVerdict v = ReadHoldingRegisters(link.serial, station, 0x0100, count,
                                                    readerCaller, SendForm::Direct, regs.data());
        if (g_script.overAsked) Fail("asked the line for more than the expected reply");
        CheckRegisterReader(readerCaller, v, regs.data(), count);
        return 0;
    }
    }
    if (txLength == 0) Fail("request not built");
    g_script.expected = rxLength;

    // Exactly the expected size, so that a write past it is caught.
    const auto rx = std::make_unique<unsigned char[]>(rxLength);
    std::memset(rx.get(), 0x5A, rxLength);
    const ErrType result = link.serial.CommandSend(tx.data(), static_cast<unsigned long>(txLength),
                                                   rx.get(), rxLength);
    const Script& s = g_script;

    if (result < ErrNone || result > ErrComm) Fail("result outside 0..3");
    if (s.overAsked) Fail("asked the line for more than the expected reply");
    if (!s.discarded) Fail("stale input was not dropped before the request");
    for (size_t i = 0; i < rxLength; ++i) {
        const unsigned char want = i < s.delivered ? s.reply[i] : 0;
        if (rx[i] != want) Fail("receive buffer is not the delivered bytes and zeros");
    }
    if (s.sendStatus == ChannelStatus::Timeout && result != ErrTimeout) Fail("send time-out");
    if (s.sendStatus == ChannelStatus::Lost && (result != ErrComm || link.serial.IsOpen()))
        Fail("line lost on sending");
    if (kind == 3 && s.sendStatus == ChannelStatus::Ok && (result != ErrComm || s.delivered != 0))
        Fail("guard let an over-long read through");
    if (result == ErrCrc && (s.delivered != rxLength || CheckFrameCrc(rx.get(), rxLength)))
        Fail("CRC error without a whole reply with a bad CRC");
    if (result == ErrNone &&
        !(CheckFrameCrc(rx.get(), s.delivered) ||
          (s.delivered >= kExceptionReplyLength && rx[1] != tx[1] &&
           CheckFrameCrc(rx.get(), kExceptionReplyLength))))
        Fail("success without a frame that closes with its CRC");
    if (s.delivered == rxLength && result != ErrNone && result != ErrCrc)
        Fail("a whole reply not judged by its CRC");
    if (result == ErrTimeout && s.delivered >= rxLength) Fail("time-out with the whole reply in");

    CheckVerdicts(result, rx.get(), tx.data(), station, registers);
    return 0;
}
