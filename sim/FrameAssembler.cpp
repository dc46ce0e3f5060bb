#include "sim/FrameAssembler.h"

#include "link/ModbusFrame.h"

namespace quillon::sim {

FrameAssembler::FrameAssembler(double silenceSeconds)
{
    SetSilence(silenceSeconds);
}

void FrameAssembler::SetSilence(double silenceSeconds)
{
    m_silence = std::chrono::duration_cast<SimClock::duration>(
        std::chrono::duration<double>(silenceSeconds));
}

int FrameAssembler::ExpectedLength() const
{
    if (m_buffer.size() < 2)
        return 0;
    switch (m_buffer[1]) {
    case ModbusFn::ReadHolding:
    case ModbusFn::WriteSingle:
        return kRequestLength;
    case ModbusFn::WriteMultiple:
        return m_buffer.size() < 7 ? 0 : 9 + m_buffer[6];
    default:
        return -1;
    }
}

void FrameAssembler::Push(const unsigned char* data, int length, SimTime now)
{
    if (length <= 0)
        return;
    if (!m_buffer.empty() && now - m_last >= m_silence) {
        // The line fell silent in between: what was there is a frame of its own.
        m_ready.push_back(ReceivedFrame{std::move(m_buffer), m_first});
        m_buffer.clear();
    }
    if (m_buffer.empty())
        m_first = now;
    m_buffer.insert(m_buffer.end(), data, data + length);
    m_last = now;
}

std::optional<ReceivedFrame> FrameAssembler::Take(SimTime now)
{
    if (!m_ready.empty()) {
        ReceivedFrame f = std::move(m_ready.front());
        m_ready.pop_front();
        return f;
    }
    if (m_buffer.empty())
        return std::nullopt;
    const int expected = ExpectedLength();
    if (expected > 0 && m_buffer.size() >= static_cast<std::size_t>(expected)) {
        ReceivedFrame f{std::vector<unsigned char>(m_buffer.begin(), m_buffer.begin() + expected),
                        m_first};
        m_buffer.erase(m_buffer.begin(), m_buffer.begin() + expected);
        m_first = now;
        return f;
    }
    if (now - m_last >= m_silence) {
        ReceivedFrame f{std::move(m_buffer), m_first};
        m_buffer.clear();
        return f;
    }
    return std::nullopt;
}

std::optional<SimTime> FrameAssembler::SilenceDeadline() const
{
    if (m_buffer.empty())
        return std::nullopt;
    return m_last + m_silence;
}

}  // namespace quillon::sim
