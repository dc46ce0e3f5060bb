#pragma once
// Cuts the byte stream a drive receives into request frames. A frame ends where its function
// byte says it does (8 bytes for 0x03 and 0x06, 9 plus the byte count for 0x10), or, for any
// other function or a frame cut short, at the silence of 3.5 characters that ends every RTU
// frame.

#include "sim/SimDrive.h"

#include <deque>
#include <optional>
#include <vector>

namespace quillon::sim {

struct ReceivedFrame {
    std::vector<unsigned char> bytes;
    SimTime firstByte;  // when its first byte arrived
};

class FrameAssembler {
public:
    explicit FrameAssembler(double silenceSeconds);

    void SetSilence(double silenceSeconds);
    void Push(const unsigned char* data, int length, SimTime now);
    // The next complete frame, if there is one by `now`.
    std::optional<ReceivedFrame> Take(SimTime now);
    // When a pending partial frame ends by silence; none when nothing is pending.
    std::optional<SimTime> SilenceDeadline() const;

private:
    int ExpectedLength() const;  // 0: not known yet, -1: ends by silence only

    SimClock::duration m_silence;
    std::vector<unsigned char> m_buffer;
    SimTime m_first{};
    SimTime m_last{};
    std::deque<ReceivedFrame> m_ready;
};

}  // namespace quillon::sim
