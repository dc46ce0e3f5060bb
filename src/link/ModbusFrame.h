#pragma once
// The three request forms the program sends to a drive (read holding registers 0x03, write one
// register 0x06, write several registers 0x10), their lengths, and the Modbus RTU CRC.
//
// Every multi-byte field is big-endian, except the CRC, which goes low byte first. Callers
// build a frame in a plain zero-filled buffer, hand it to the link with the number of reply
// bytes they expect, and look at the reply's function byte themselves (see ReplyJudge.h).

#include <cstddef>
#include <cstdint>
#include <span>

namespace quillon {

namespace ModbusFn {
inline constexpr unsigned char ReadHolding = 0x03;
inline constexpr unsigned char WriteSingle = 0x06;
inline constexpr unsigned char WriteMultiple = 0x10;
}  // namespace ModbusFn

inline constexpr int kBroadcastStation = 0;
inline constexpr int kRequestLength = 8;           // 0x03 and 0x06 requests
inline constexpr int kWriteReplyLength = 8;        // replies to 0x06 and 0x10
inline constexpr int kExceptionReplyLength = 5;    // station, function | 0x80, code, CRC
inline constexpr int kMaxRegistersPerFrame = 23;   // the longest frame of the program (group 10)
inline constexpr int kMaxFrameLength = 9 + 2 * kMaxRegistersPerFrame;  // 55 bytes

// Reply length of a read of `count` registers: station, function, byte count, data, CRC.
constexpr int ReadReplyLength(int count) { return 5 + 2 * count; }
// Request length of a multiple write of `count` registers.
constexpr int WriteMultipleLength(int count) { return 9 + 2 * count; }

// CRC-16 of Modbus RTU over `length` bytes, computed bit by bit (polynomial 0xA001, start
// 0xFFFF). A length of 0 gives 0xFFFF.
std::uint16_t ModbusCrc16(unsigned long length, const unsigned char* data);

// 1 when the last two of `length` bytes are the CRC of the bytes before them (low byte first),
// else 0. Fewer than two bytes give 0.
int CheckFrameCrc(const unsigned char* data, unsigned long length);

// Stores the CRC of the first `length` bytes behind them, low byte first. The buffer must hold
// `length + 2` bytes.
void AppendCrc(unsigned char* frame, int length);

// Builders. Each zero-fills `frame` first, writes the request with its CRC and returns its
// length. `frame` must hold at least the returned number of bytes; a too small span or a count
// outside 1..kMaxRegistersPerFrame is a programming error and gives 0 with nothing written.
int BuildReadFrame(std::span<unsigned char> frame, int station, std::uint16_t reg, int count);
int BuildWriteSingleFrame(std::span<unsigned char> frame, int station, std::uint16_t reg,
                          std::uint16_t value);
int BuildWriteMultipleFrame(std::span<unsigned char> frame, int station, std::uint16_t reg,
                            std::span<const std::uint16_t> values);

// Big-endian 16-bit value at `offset` of a frame (registers of a reply start at offset 3).
constexpr std::uint16_t FrameWord(const unsigned char* frame, int offset)
{
    return static_cast<std::uint16_t>((frame[offset] << 8) | frame[offset + 1]);
}

}  // namespace quillon
