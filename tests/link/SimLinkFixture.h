#pragma once
// A CDriveSerial opened on a simulated bus in this process, through the same InitComm and
// Channel path a serial port takes.

#include "LinkTestSupport.h"
#include "link/ChannelFactory.h"
#include "link/DriveSerial.h"
#include "link/ModbusFrame.h"
#include "sim/SimChannel.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace quillon::test {

class SimLinkTest : public ::testing::Test {
protected:
    // `anyThreadIo` false runs the transactions on the link's I/O thread instead of the
    // caller's, the path of channels bound to the thread that opened them.
    void OpenBus(const sim::BusSetup& setup = TestBusSetup(),
                 sim::SimBus::Clock clock = &sim::SimClock::now, bool anyThreadIo = true)
    {
        m_bus = std::make_shared<sim::SimBus>(setup, std::move(clock));
        m_line = std::make_shared<sim::SimLine>();
        m_factory.emplace(sim::SimChannelFactory(m_bus, m_line, anyThreadIo));
        ASSERT_EQ(m_link.InitComm(QStringLiteral("COM1"), 19200, 8, 0, 2.0f), 1)
            << m_link.OpenFailureDetail().toStdString();
    }

    // A read of `count` registers; the reply lands in m_rx.
    ErrType ReadRegs(int station, std::uint16_t reg, int count,
                     unsigned long rxLength = 0)
    {
        std::array<unsigned char, kRequestLength> tx{};
        BuildReadFrame(tx, station, reg, count);
        m_rx.assign(256, 0xEE);
        return m_link.CommandSend(tx.data(), tx.size(), m_rx.data(),
                                  rxLength ? rxLength : ReadReplyLength(count));
    }

    ErrType WriteReg(int station, std::uint16_t reg, std::uint16_t value)
    {
        std::array<unsigned char, kRequestLength> tx{};
        BuildWriteSingleFrame(tx, station, reg, value);
        m_rx.assign(256, 0xEE);
        return m_link.CommandSend(tx.data(), tx.size(), m_rx.data(), kWriteReplyLength);
    }

    ErrType WriteRegs(int station, std::uint16_t reg, const std::vector<std::uint16_t>& values)
    {
        std::array<unsigned char, kMaxFrameLength> tx{};
        const int n = BuildWriteMultipleFrame(tx, station, reg, values);
        m_rx.assign(256, 0xEE);
        return m_link.CommandSend(tx.data(), n, m_rx.data(), kWriteReplyLength);
    }

    // Sends raw request bytes with their CRC appended.
    ErrType SendRaw(std::vector<unsigned char> request, unsigned long rxLength)
    {
        const int n = static_cast<int>(request.size());
        request.resize(request.size() + 2);
        AppendCrc(request.data(), n);
        m_rx.assign(256, 0xEE);
        return m_link.CommandSend(request.data(), request.size(), m_rx.data(), rxLength);
    }

    std::uint16_t Word(int index) const { return FrameWord(m_rx.data(), 3 + 2 * index); }

    std::shared_ptr<sim::SimBus> m_bus;
    std::shared_ptr<sim::SimLine> m_line;
    std::optional<ScopedChannelFactory> m_factory;
    CDriveSerial m_link;
    std::vector<unsigned char> m_rx;
};

}  // namespace quillon::test
