#pragma once
// The broadcast: one register written to every drive on the line at once (station 0). Drives
// never answer a broadcast, so it is no transaction: the frame is written, the sender gives
// the drives time to store the value and counts it as done.

#include <cstdint>

namespace quillon {

class CSerial;

// Pause after a broadcast before the next frame.
inline constexpr int kBroadcastPauseMs = 100;

// Builds the 0x06 frame for station 0, writes it with CSerial::Write, sleeps
// kBroadcastPauseMs and returns 1, whether or not the line took the bytes.
int BroadcastWriteSingle(CSerial& link, std::uint16_t reg, std::uint16_t value);

}  // namespace quillon
