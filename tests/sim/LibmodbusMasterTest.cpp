// libmodbus as RTU master against the r770-sim program, joined by a socat pair of
// pseudo-terminals: an independent implementation checks the simulator's framing, CRCs,
// exceptions and broadcasts.

#include "LinkTestSupport.h"

#include "link/ModbusFrame.h"
#include "link/Registers.h"

#include <gtest/gtest.h>
#include <modbus/modbus.h>

#include <cerrno>
#include <memory>

namespace quillon::test {
namespace {

struct ModbusDeleter {
    void operator()(modbus_t* ctx) const
    {
        modbus_close(ctx);
        modbus_free(ctx);
    }
};

TEST(LibmodbusMasterPeer, ReadsWritesExceptionsAndBroadcastOnTheSimulator)
{
    SocatPair pair;
    ASSERT_TRUE(pair.Ready()) << "socat did not create its pseudo-terminals";
    ChildProcess sim({R770_SIM, "--device", pair.A().toStdString(), "--station", "1,2", "--model",
                      "1205,401", "--baud", "19200", "--parity", "even", "--stop-bits", "1"});
    ASSERT_FALSE(sim.WaitForLine("ready", std::chrono::seconds(10)).empty());

    std::unique_ptr<modbus_t, ModbusDeleter> ctx(
        modbus_new_rtu(pair.B().toLocal8Bit().constData(), 19200, 'E', 8, 1));
    ASSERT_TRUE(ctx);
    ASSERT_EQ(modbus_connect(ctx.get()), 0);
    modbus_set_response_timeout(ctx.get(), 1, 0);
    ASSERT_EQ(modbus_set_slave(ctx.get(), 2), 0);

    std::uint16_t regs[32] = {};
    ASSERT_EQ(modbus_read_registers(ctx.get(), RegCapacityCode, 2, regs), 2);
    EXPECT_EQ(regs[0], 401);
    EXPECT_EQ(regs[1], 1000);
    // Group 10 in one frame of 23 registers, written and read back.
    std::uint16_t values[23];
    for (int i = 0; i < 23; ++i)
        values[i] = static_cast<std::uint16_t>(100 + i);
    ASSERT_EQ(modbus_write_registers(ctx.get(), 0x0A00, 23, values), 23);
    ASSERT_EQ(modbus_read_registers(ctx.get(), 0x0A00, 23, regs), 23);
    for (int i = 0; i < 23; ++i)
        EXPECT_EQ(regs[i], 100 + i);
    ASSERT_EQ(modbus_write_register(ctx.get(), RegFrequencyCommand, 2500), 1);
    ASSERT_EQ(modbus_read_registers(ctx.get(), RegMonitorBlock, 16, regs), 16);
    EXPECT_EQ(regs[0], 2500);

    // The drive's letters are no standard exception codes: libmodbus reports them as such.
    EXPECT_EQ(modbus_read_registers(ctx.get(), 0x0207, 1, regs), -1);
    EXPECT_EQ(errno, EMBBADEXC);
    // Raw, the letter itself comes back.
    std::uint8_t request[] = {2, 0x03, 0x02, 0x07, 0x00, 0x01};
    ASSERT_GT(modbus_send_raw_request(ctx.get(), request, sizeof request), 0);
    std::uint8_t reply[MODBUS_RTU_MAX_ADU_LENGTH] = {};
    ASSERT_EQ(modbus_receive_confirmation(ctx.get(), reply), 5);
    EXPECT_EQ(reply[1], 0x83);
    EXPECT_EQ(reply[2], 'R');

    // A broadcast reaches both stations and is not answered: this libmodbus waits for a reply
    // all the same and reports the silence as its time-out.
    ASSERT_EQ(modbus_set_slave(ctx.get(), MODBUS_BROADCAST_ADDRESS), 0);
    modbus_set_response_timeout(ctx.get(), 0, 300'000);
    EXPECT_EQ(modbus_write_register(ctx.get(), 0x000E, 77), -1);
    EXPECT_EQ(errno, ETIMEDOUT);
    for (int station : {1, 2}) {
        ASSERT_EQ(modbus_set_slave(ctx.get(), station), 0);
        ASSERT_EQ(modbus_read_registers(ctx.get(), 0x000E, 1, regs), 1) << station;
        EXPECT_EQ(regs[0], 77) << station;
    }
}

}  // namespace
}  // namespace quillon::test
