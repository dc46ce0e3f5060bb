#pragma once
// The monitoring logic against the in-process simulated drive: a real CDriveSerial in front of
// the bus, run directly on the test's thread. A test can queue canned results (a drive's
// exception reply, a CRC fault, an unknown result) that stand in for the next transactions.

#include "LinkTestSupport.h"
#include "link/ChannelFactory.h"
#include "link/DriveSerial.h"
#include "monitor/LinkExchange.h"
#include "sim/SimChannel.h"
#include "support/ScriptedPrompt.h"

#include <gtest/gtest.h>

#include <cstring>
#include <deque>
#include <optional>
#include <vector>

namespace quillon::test {

using Frame = std::vector<unsigned char>;

class CannedLink final : public CDriveSerial {
public:
    struct Canned {
        ErrType result;
        Frame reply;
    };
    std::deque<Canned> canned;

    ErrType CommandSend(const unsigned char* tx, unsigned long txLength, unsigned char* rx,
                        unsigned long rxLength) override
    {
        if (canned.empty())
            return CDriveSerial::CommandSend(tx, txLength, rx, rxLength);
        const Canned c = canned.front();
        canned.pop_front();
        // A canned result without a reply (a time-out) leaves the buffer alone: an empty
        // vector's data() may be null, which memcpy must not be given.
        if (!c.reply.empty())
            std::memcpy(rx, c.reply.data(), std::min<std::size_t>(rxLength, c.reply.size()));
        return c.result;
    }
};

class MonitorTest : public ::testing::Test {
protected:
    void OpenBus(const sim::BusSetup& setup = TestBusSetup())
    {
        m_bus = std::make_shared<sim::SimBus>(setup);
        m_line = std::make_shared<sim::SimLine>();
        m_factory.emplace(sim::SimChannelFactory(m_bus, m_line));
        ASSERT_EQ(m_link.InitComm(QStringLiteral("COM1"), 19200, 8, 0, 2.0f), 1);
    }
    // The frames that reached the bus since the last call, less their CRC.
    std::vector<Frame> TakeSent()
    {
        std::vector<Frame> all = m_line->Sent(), fresh;
        for (std::size_t i = m_nSeen; i < all.size(); ++i)
            fresh.emplace_back(all[i].begin(), all[i].end() - 2);
        m_nSeen = all.size();
        return fresh;
    }
    std::uint16_t DriveRegister(std::uint16_t reg)
    {
        LinkExchange e = ReadExchange(1, reg, 1);
        e.Run(&m_link);
        TakeSent();
        return e.Word(0);
    }
    void SetDriveRegister(std::uint16_t reg, std::uint16_t value)
    {
        LinkExchange e = WriteExchange(1, reg, value);
        e.Run(&m_link);
        EXPECT_TRUE(e.Ok());
        TakeSent();
    }
    // An exception reply of station 1 to function `fn`.
    static CannedLink::Canned Exception(unsigned char fn)
    {
        return {ErrNone, Frame{1, static_cast<unsigned char>(fn | 0x80), 'R'}};
    }

    ScriptedPrompt m_prompt;
    std::shared_ptr<sim::SimBus> m_bus;
    std::shared_ptr<sim::SimLine> m_line;
    std::optional<ScopedChannelFactory> m_factory;
    CannedLink m_link;
    CDirectRunner m_runner{[this] { return &m_link; }};
    std::size_t m_nSeen = 0;
};

}  // namespace quillon::test
