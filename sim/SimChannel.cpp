#include "sim/SimChannel.h"

namespace quillon::sim {

void SimLine::Cut()
{
    {
        std::lock_guard lock(m_mutex);
        m_bCut = true;
    }
    m_cv.notify_all();
}

void SimLine::InjectInput(const std::vector<unsigned char>& bytes)
{
    {
        std::lock_guard lock(m_mutex);
        const SimTime now = SimClock::now();
        for (unsigned char b : bytes)
            m_input.emplace_back(now, b);
    }
    m_cv.notify_all();
}

std::vector<std::vector<unsigned char>> SimLine::Sent() const
{
    std::lock_guard lock(m_mutex);
    return m_sent;
}

std::vector<SimTime> SimLine::SentTimes() const
{
    std::lock_guard lock(m_mutex);
    return m_sentTimes;
}

SimChannel::SimChannel(std::shared_ptr<SimBus> bus, std::shared_ptr<SimLine> line,
                       bool anyThreadIo)
    : m_bus(std::move(bus)), m_line(std::move(line)), m_bAnyThreadIo(anyThreadIo)
{
}

bool SimChannel::IsOpen() const
{
    std::lock_guard lock(m_line->m_mutex);
    return m_bOpen && !m_line->m_bCut;
}

void SimChannel::Close()
{
    m_bOpen = false;
}

void SimChannel::DiscardInput()
{
    std::lock_guard lock(m_line->m_mutex);
    const SimTime now = SimClock::now();
    while (!m_line->m_input.empty() && m_line->m_input.front().first <= now)
        m_line->m_input.pop_front();
}

ChannelStatus SimChannel::Send(const unsigned char* data, int length, int /*timeoutMs*/)
{
    const SimTime now = SimClock::now();
    std::vector<unsigned char> frame(data, data + length);
    {
        std::lock_guard lock(m_line->m_mutex);
        if (!m_bOpen || m_line->m_bCut) {
            m_bOpen = false;
            return ChannelStatus::Lost;
        }
        m_line->m_sent.push_back(frame);
        m_line->m_sentTimes.push_back(now);
    }
    const auto reply = m_bus->Handle(frame, now);
    if (reply) {
        std::lock_guard lock(m_line->m_mutex);
        for (std::size_t i = 0; i < reply->bytes.size(); ++i)
            m_line->m_input.emplace_back(reply->Due(i), reply->bytes[i]);
    }
    m_line->m_cv.notify_all();
    return ChannelStatus::Ok;
}

ChannelStatus SimChannel::Receive(unsigned char* buffer, int max, int& got, int timeoutMs)
{
    got = 0;
    const SimTime deadline = SimClock::now() + std::chrono::milliseconds(timeoutMs);
    std::unique_lock lock(m_line->m_mutex);
    for (;;) {
        if (!m_bOpen || m_line->m_bCut) {
            m_bOpen = false;
            return ChannelStatus::Lost;
        }
        const SimTime now = SimClock::now();
        auto& input = m_line->m_input;
        while (got < max && !input.empty() && input.front().first <= now) {
            buffer[got++] = input.front().second;
            input.pop_front();
        }
        if (got > 0)
            return ChannelStatus::Ok;
        if (now >= deadline)
            return ChannelStatus::Timeout;
        const SimTime wake = input.empty() ? deadline : std::min(deadline, input.front().first);
        m_line->m_cv.wait_until(lock, wake);
    }
}

ChannelFactory SimChannelFactory(std::shared_ptr<SimBus> bus, std::shared_ptr<SimLine> line,
                                 bool anyThreadIo)
{
    return [bus = std::move(bus), line = std::move(line), anyThreadIo](const OpenRequest&,
                                                                       QString&) {
        return std::unique_ptr<Channel>(std::make_unique<SimChannel>(bus, line, anyThreadIo));
    };
}

}  // namespace quillon::sim
