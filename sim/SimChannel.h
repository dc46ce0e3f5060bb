#pragma once
// A simulated drive bus behind the link's Channel interface, in the same process: what tests
// and demonstrations put behind CDriveSerial instead of a serial port. Each Send is one request
// frame for the bus; the reply bytes become readable at the times the bus scheduled them, so
// wire timing, extra delays and silence behave as on a real line.

#include "link/Channel.h"
#include "link/ChannelFactory.h"
#include "sim/SimBus.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

namespace quillon::sim {

// The line between the link and the bus, shared with the test that set it up: it can cut the
// line (adapter pulled, peer gone), put stray bytes on it, and see what the link sent.
class SimLine {
public:
    // Every channel on this line reports it lost from now on.
    void Cut();
    // Bytes that arrive on their own, before any request (noise, a late reply).
    void InjectInput(const std::vector<unsigned char>& bytes);
    // The frames the link sent, in order, and when each was sent.
    std::vector<std::vector<unsigned char>> Sent() const;
    std::vector<SimTime> SentTimes() const;

private:
    friend class SimChannel;
    mutable std::mutex m_mutex;
    std::condition_variable m_cv;
    bool m_bCut = false;
    std::deque<std::pair<SimTime, unsigned char>> m_input;  // due time, byte
    std::vector<std::vector<unsigned char>> m_sent;
    std::vector<SimTime> m_sentTimes;
};

class SimChannel final : public Channel {
public:
    // `anyThreadIo` false makes the link run the channel's I/O on its own thread, as it does
    // for channels bound to the thread that opened them.
    SimChannel(std::shared_ptr<SimBus> bus, std::shared_ptr<SimLine> line, bool anyThreadIo = true);
    ~SimChannel() override = default;

    bool AnyThreadIo() const override { return m_bAnyThreadIo; }
    bool IsOpen() const override;
    void Close() override;
    void DiscardInput() override;
    ChannelStatus Send(const unsigned char* data, int length, int timeoutMs) override;
    ChannelStatus Receive(unsigned char* buffer, int max, int& got, int timeoutMs) override;
    QString Describe() const override { return QStringLiteral("simulated drive bus"); }

private:
    std::shared_ptr<SimBus> m_bus;
    std::shared_ptr<SimLine> m_line;
    bool m_bAnyThreadIo;
    bool m_bOpen = true;
};

// A channel factory that answers every port name, "TCPIP" included, with the bus on `line`.
ChannelFactory SimChannelFactory(std::shared_ptr<SimBus> bus, std::shared_ptr<SimLine> line,
                                 bool anyThreadIo = true);

}  // namespace quillon::sim
