// The control panel's logic against the simulated drive: the frames of each button, the
// frequency edit and "Set", and what its failures do.

#include "MonitorFixture.h"
#include "link/Registers.h"
#include "monitor/ControlPanel.h"
#include "monitor/FrequencyEdit.h"

namespace quillon::test {
namespace {

class ControlPanelTest : public MonitorTest {
protected:
    void SetUp() override { OpenBus(); }
    CControlPanel m_panel{m_runner, {1}, 0};
};

TEST_F(ControlPanelTest, CommandButtonsReadTheWordFreshAndJogUsesThePolledOne)
{
    SetDriveRegister(RegControlWord, ControlBit::Reverse);
    m_panel.Tick();
    EXPECT_EQ(TakeSent(), (std::vector<Frame>{{1, 0x03, 0x25, 0x01, 0x00, 0x01}}));
    EXPECT_EQ(m_panel.ControlWord(), ControlBit::Reverse);

    // The drive's word changes behind the panel: RUN works on what it reads now.
    SetDriveRegister(RegControlWord, 0);
    m_panel.OnCommand(ControlCommand::Run);
    EXPECT_EQ(TakeSent(), (std::vector<Frame>{{1, 0x03, 0x25, 0x01, 0x00, 0x01},
                                              {1, 0x06, 0x25, 0x01, 0x00, 0x01}}));
    const struct {
        ControlCommand command;
        std::uint16_t before, after;
    } bits[] = {{ControlCommand::Run, 0x0002, 0x0003},     {ControlCommand::Stop, 0x0023, 0x0022},
                {ControlCommand::Forward, 0x0013, 0x0011}, {ControlCommand::Reverse, 0x0001, 0x0003},
                {ControlCommand::Abnormal, 0x0001, 0x0005}, {ControlCommand::FaultReset, 0x0004, 0x000C}};
    for (const auto& b : bits)
        EXPECT_EQ(ApplyControlCommand(b.command, b.before), b.after);

    // Jog: no read, the polled word (still 0x0002) with bit 4 set; the text follows the drive.
    m_panel.OnJog(true);
    EXPECT_EQ(TakeSent(), (std::vector<Frame>{{1, 0x06, 0x25, 0x01, 0x00, 0x12}}));
    EXPECT_EQ(m_panel.JogForwardText(), "Jog forward");
    m_panel.Tick();
    EXPECT_EQ(m_panel.JogForwardText(), "Stop jog forward");
    EXPECT_EQ(m_panel.JogReverseText(), "Jog Reverse");
    TakeSent();
    m_panel.OnJog(true);
    EXPECT_EQ(TakeSent(), (std::vector<Frame>{{1, 0x06, 0x25, 0x01, 0x00, 0x02}}));

    // After a failed poll the jog still writes the stale word with its one bit changed.
    m_link.canned.push_back({ErrTimeout, {}});
    m_panel.Tick();
    EXPECT_FALSE(m_panel.IsPolling());
    SetDriveRegister(RegControlWord, 0x0001);
    m_panel.OnJog(false);
    EXPECT_EQ(TakeSent(), (std::vector<Frame>{{1, 0x06, 0x25, 0x01, 0x00, 0x22}}));
    EXPECT_EQ(m_prompt.Messages(), QStringList{"TimeOut!"});
}

TEST_F(ControlPanelTest, SetScalesCutsWrapsAndChecksTheLimits)
{
    SetDriveRegister(RegUpperLimit, 60000);
    SetDriveRegister(RegLowerLimit, 0);
    const struct {
        const char* text;
        std::uint16_t sent;
    } sets[] = {{"700.00", 4464}, {"0.29", 28}, {"30.00", 3000}, {"", 0}};
    for (const auto& s : sets) {
        EXPECT_EQ(m_panel.OnFrequencyEdited(QString::fromLatin1(s.text)), s.text);
        m_panel.OnSet();
        EXPECT_EQ(TakeSent(), (std::vector<Frame>{{1, 0x03, 0x00, 0x0C, 0x00, 0x02},
                                                  {1, 0x06, 0x25, 0x02,
                                                   static_cast<unsigned char>(s.sent >> 8),
                                                   static_cast<unsigned char>(s.sent & 0xFF)}}))
            << s.text;
    }
    EXPECT_EQ(DriveRegister(RegMonitorBlock + Monitor::SetFrequency), 0);

    // Below the lower limit, or above the upper one after the wrap: nothing is written.
    SetDriveRegister(RegLowerLimit, 1000);
    SetDriveRegister(RegUpperLimit, 4000);
    for (const char* text : {"9.99", "", "700.00"}) {
        m_panel.OnFrequencyEdited(QString::fromLatin1(text));
        m_panel.OnSet();
        EXPECT_EQ(TakeSent().size(), 1u) << text;
    }
    EXPECT_EQ(m_prompt.Messages(), QStringList(3, kFrequencyRangeText));
    EXPECT_EQ(m_panel.Failures(), 3);
}

TEST_F(ControlPanelTest, FrequencyEditRefusesWhatTheDriveCantTake)
{
    const struct {
        const char* previous;
        const char* typed;
        const char* shown;
    } edits[] = {{"50.00", "", ""},          {"", ".5", ""},           {"1", "1.2.", "1"},
                 {"1", "1a", "1"},           {"1200", "1200.1", "1200"}, {"1200", "12000", "1200"},
                 {"12.34", "12.345", "12.34"}, {"5", "5.", "5."},      {"1", "-1", "1"}};
    for (const auto& e : edits)
        EXPECT_EQ(FilterFrequencyText(e.previous, e.typed), e.shown) << e.typed;
}

TEST_F(ControlPanelTest, FailedPollStopsWithItsWordAndFailedCommandsDont)
{
    // Unknown results say nothing and poll on.
    m_link.canned.push_back({static_cast<ErrType>(7), {}});
    m_panel.Tick();
    EXPECT_TRUE(m_panel.IsPolling());
    EXPECT_TRUE(m_prompt.Messages().isEmpty());

    // A command whose read fails sends no write, says why, and the polling goes on.
    m_link.canned.push_back(Exception(0x03));
    m_panel.OnCommand(ControlCommand::Run);
    m_link.canned.push_back({ErrCrc, {}});
    m_panel.OnSet();
    EXPECT_TRUE(TakeSent().empty());
    EXPECT_TRUE(m_panel.IsPolling());
    EXPECT_EQ(m_prompt.Messages(), (QStringList{"Communication error!", "CRC parity error!"}));

    // A poll answered with another function byte stops the polling.
    m_link.canned.push_back(Exception(0x03));
    m_panel.Tick();
    EXPECT_FALSE(m_panel.IsPolling());
    m_panel.Tick();
    EXPECT_TRUE(TakeSent().empty());
    EXPECT_EQ(m_prompt.Messages().size(), 3);
}

}  // namespace
}  // namespace quillon::test
