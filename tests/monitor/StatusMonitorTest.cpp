// The status monitor's logic against the simulated drive: what each page reads and shows, the
// lamps' rule, and its two failure paths.

#include "MonitorFixture.h"
#include "link/Registers.h"
#include "monitor/StatusMonitor.h"

namespace quillon::test {
namespace {

bool Has(const std::vector<Lamp>& lamps, int x, int y, LampColour colour)
{
    return std::any_of(lamps.begin(), lamps.end(), [&](const Lamp& l) {
        return l.x == x && l.y == y && l.colour == colour;
    });
}

class StatusMonitorTest : public MonitorTest {
protected:
    void SetUp() override
    {
        sim::BusSetup setup = TestBusSetup();
        setup.faultCode = 13;
        setup.terminals = 0x45;
        OpenBus(setup);
    }
    void TickBoth()
    {
        m_monitor.StatusPage().Tick();
        m_monitor.TerminalPage().Tick();
    }
    CStatusMonitor m_monitor{m_runner, {1}, 0};
};

TEST_F(StatusMonitorTest, PagesShowTheDrivesStateOnlyAfterStart)
{
    CMonitorPage& status = m_monitor.StatusPage();
    CMonitorPage& terminal = m_monitor.TerminalPage();
    TickBoth();  // no timer runs before Start
    EXPECT_TRUE(TakeSent().empty());
    EXPECT_FALSE(status.LampsShown());
    EXPECT_EQ(FaultTextsOf(status.FaultCode()).display, "-");

    m_monitor.Start();
    TickBoth();
    EXPECT_EQ(TakeSent(), (std::vector<Frame>{{1, 0x03, 0x25, 0x20, 0x00, 0x08},
                                              {1, 0x03, 0x25, 0x22, 0x00, 0x01}}));
    EXPECT_TRUE(status.LampsShown());
    EXPECT_EQ(status.FaultCode(), 13);
    const FaultTexts fault = FaultTextsOf(status.FaultCode());
    EXPECT_EQ(fault.display, "oL1");
    EXPECT_EQ(fault.description, "Motor overload");
    const std::vector<Lamp> lamps = StatusLamps(status.StatusWord());
    EXPECT_TRUE(Has(lamps, 497, 117, LampColour::Red));     // the fault lamp
    EXPECT_TRUE(Has(lamps, 143, 165, LampColour::Orange));  // stopped
    EXPECT_FALSE(Has(lamps, 143, 117, LampColour::Green));  // not ready
    EXPECT_EQ(terminal.TerminalWord(), 0x45);
    const std::vector<Lamp> inputs = TerminalLamps(terminal.TerminalWord());
    EXPECT_EQ(inputs.size(), 3u);  // DI1, DI3 and the relay
    EXPECT_TRUE(Has(inputs, 251, kTerminalLampY, LampColour::Green));

    // Codes the table lacks have no texts; the fault lamp follows the abnormal bit alone.
    for (std::uint32_t code : {5u, 31u, 35u})
        EXPECT_TRUE(FaultTextsOf(code).display.isEmpty() && FaultTextsOf(code).description.isEmpty());
    EXPECT_FALSE(Has(StatusLamps(StatusBit::Ready), 497, 117, LampColour::Red));
    EXPECT_TRUE(Has(StatusLamps(StatusBit::Abnormal | StatusBit::Running | StatusBit::Reverse),
                    497, 117, LampColour::Red));

    // After a reset the drive runs; the values follow with their formats.
    SetDriveRegister(RegFrequencyCommand, 3000);
    SetDriveRegister(RegControlWord, ControlBit::FaultReset | ControlBit::Run);
    TickBoth();
    const auto text = [&](int i) { return ValueText(MeasuredValues()[i], status.Word(MeasuredValues()[i].index)); };
    EXPECT_EQ(text(0), "30.00");
    EXPECT_EQ(text(3), "311");  // 220 V mains, rectified
    EXPECT_TRUE(Has(StatusLamps(status.StatusWord()), 143, 189, LampColour::Red));

    m_monitor.Stop();
    EXPECT_FALSE(status.IsPolling() || terminal.IsPolling());
    EXPECT_TRUE(status.LampsShown());  // the last state stays lit
    EXPECT_TRUE(m_prompt.Messages().isEmpty());
}

TEST_F(StatusMonitorTest, TransportFailureStopsBothSilentlyWrongFunctionStopsOnePage)
{
    CMonitorPage& status = m_monitor.StatusPage();
    CMonitorPage& terminal = m_monitor.TerminalPage();
    m_monitor.Start();
    TickBoth();
    m_line->Cut();
    status.Tick();
    EXPECT_FALSE(status.IsPolling() || terminal.IsPolling());
    EXPECT_TRUE(status.LampsShown());
    EXPECT_EQ(status.FaultCode(), 13);  // the last values stand
    EXPECT_TRUE(m_prompt.Messages().isEmpty());

    m_monitor.Start();  // a later Start polls again; the drive answers with another function
    m_link.canned.push_back(Exception(0x03));
    terminal.Tick();
    EXPECT_TRUE(status.IsPolling());
    EXPECT_FALSE(terminal.IsPolling());
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Communication error!"});
}

}  // namespace
}  // namespace quillon::test
