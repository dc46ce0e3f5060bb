// Our link as master against libmodbus as RTU slave, joined by a socat pair of
// pseudo-terminals: an independent implementation checks our frames, CRCs and reply handling.

#include "LinkTestSupport.h"

#include "link/ModbusFrame.h"
#include "link/ReplyJudge.h"

#include <gtest/gtest.h>
#include <modbus/modbus.h>

#include <array>
#include <atomic>
#include <mutex>
#include <poll.h>
#include <thread>

namespace quillon::test {
namespace {

using std::chrono::steady_clock;

constexpr int kStation = 7;
constexpr int kRegisters = 100;

// A libmodbus RTU slave with 100 holding registers, served on its own thread.
class LibmodbusSlave {
public:
    explicit LibmodbusSlave(const QString& device)
    {
        m_ctx = modbus_new_rtu(device.toLocal8Bit().constData(), 19200, 'N', 8, 2);
        m_map = modbus_mapping_new(0, 0, kRegisters, 0);
        if (!m_ctx || !m_map || modbus_set_slave(m_ctx, kStation) != 0 || modbus_connect(m_ctx) != 0)
            return;
        m_bReady = true;
        m_thread = std::thread([this] { Serve(); });
    }
    ~LibmodbusSlave()
    {
        m_bStop = true;
        if (m_thread.joinable())
            m_thread.join();
        if (m_ctx) {
            modbus_close(m_ctx);
            modbus_free(m_ctx);
        }
        if (m_map)
            modbus_mapping_free(m_map);
    }
    bool Ready() const { return m_bReady; }
    std::uint16_t Get(int i)
    {
        std::lock_guard lock(m_mutex);
        return m_map->tab_registers[i];
    }
    void Set(int i, std::uint16_t v)
    {
        std::lock_guard lock(m_mutex);
        m_map->tab_registers[i] = v;
    }

private:
    void Serve()
    {
        std::uint8_t query[MODBUS_RTU_MAX_ADU_LENGTH];
        while (!m_bStop) {
            pollfd p{modbus_get_socket(m_ctx), POLLIN, 0};
            if (::poll(&p, 1, 20) <= 0)
                continue;
            const int rc = modbus_receive(m_ctx, query);
            if (rc > 0) {
                std::lock_guard lock(m_mutex);
                modbus_reply(m_ctx, query, rc, m_map);
            }
        }
    }

    modbus_t* m_ctx = nullptr;
    modbus_mapping_t* m_map = nullptr;
    std::mutex m_mutex;
    std::atomic<bool> m_bStop{false};
    bool m_bReady = false;
    std::thread m_thread;
};

TEST(LibmodbusSlavePeer, ReadsWritesAndStandardExceptions)
{
    SocatPair pair;
    ASSERT_TRUE(pair.Ready()) << "socat did not create its pseudo-terminals";
    LibmodbusSlave slave(pair.A());
    ASSERT_TRUE(slave.Ready());
    for (int i = 0; i < kRegisters; ++i)
        slave.Set(i, static_cast<std::uint16_t>(0x1100 + i));
    CDriveSerial link;
    ASSERT_EQ(OpenOnDevice(link, pair.B()), 1) << link.OpenFailureDetail().toStdString();
    std::array<unsigned char, 128> rx{};

    // Read holding registers.
    std::array<unsigned char, kMaxFrameLength> tx{};
    BuildReadFrame(tx, kStation, 10, 23);
    ASSERT_EQ(link.CommandSend(tx.data(), kRequestLength, rx.data(), ReadReplyLength(23)), ErrNone);
    EXPECT_EQ(rx[1], 0x03);
    EXPECT_EQ(rx[2], 46);
    for (int i = 0; i < 23; ++i)
        EXPECT_EQ(FrameWord(rx.data(), 3 + 2 * i), 0x1100 + 10 + i);

    // Write one register: the echo, and the slave holds the value.
    BuildWriteSingleFrame(tx, kStation, 20, 0xBEEF);
    ASSERT_EQ(link.CommandSend(tx.data(), kRequestLength, rx.data(), kWriteReplyLength), ErrNone);
    EXPECT_TRUE(std::equal(tx.begin(), tx.begin() + kRequestLength, rx.begin()));
    EXPECT_EQ(slave.Get(20), 0xBEEF);

    // Write several registers.
    const std::vector<std::uint16_t> values = {1, 2, 3, 65535};
    const int n = BuildWriteMultipleFrame(tx, kStation, 30, values);
    ASSERT_EQ(link.CommandSend(tx.data(), n, rx.data(), kWriteReplyLength), ErrNone);
    EXPECT_EQ(rx[1], 0x10);
    EXPECT_EQ(FrameWord(rx.data(), 2), 30);
    EXPECT_EQ(FrameWord(rx.data(), 4), 4);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(slave.Get(30 + i), values[static_cast<std::size_t>(i)]);

    // Past the end of the map: the standard exception 2, which the drive texts don't know.
    // The five-byte reply ends the transaction at once.
    BuildReadFrame(tx, kStation, 95, 10);
    const auto t0 = steady_clock::now();
    ASSERT_EQ(link.CommandSend(tx.data(), kRequestLength, rx.data(), ReadReplyLength(10)), ErrNone);
    EXPECT_LT(SecondsSince(t0), 0.2);
    EXPECT_EQ(rx[1], 0x83);
    EXPECT_EQ(rx[2], MODBUS_EXCEPTION_ILLEGAL_DATA_ADDRESS);
    const ReplyVerdict v = JudgeReply(ReplyCaller::PageAccess, ErrNone, rx.data(), 0x03, kStation);
    EXPECT_EQ(v.text, "Station Num 7\nWriting Mode Error ");

    // Another station on the line: libmodbus keeps quiet, we time out.
    BuildReadFrame(tx, kStation + 1, 0, 1);
    EXPECT_EQ(link.CommandSend(tx.data(), kRequestLength, rx.data(), 7), ErrTimeout);
}

}  // namespace
}  // namespace quillon::test
