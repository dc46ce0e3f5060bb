// The small register readers and the identification read against the simulated drive: values,
// and the words each shows when the drive doesn't answer or refuses.

#include "SimLinkFixture.h"
#include "link/FaultCodes.h"
#include "link/RegisterReaders.h"
#include "link/Registers.h"
#include "support/ScriptedPrompt.h"

namespace quillon::test {
namespace {

class RegisterReaders : public SimLinkTest {
protected:
    void SetUp() override
    {
        sim::BusSetup setup = TestBusSetup();
        setup.version = 1234;
        OpenBus(setup);
    }
};

TEST_F(RegisterReaders, ReadWhatTheDriveHolds)
{
    ScriptedPrompt prompt;
    int value = -1;
    EXPECT_EQ(ReadCapacity(m_link, 1, value), 1);
    EXPECT_EQ(value, 1205);
    EXPECT_EQ(ReadModelWord(m_link, 1, value), 1);
    EXPECT_EQ(value, 0x0100);
    ASSERT_EQ(WriteReg(1, RegRunSource, 2), ErrNone);
    EXPECT_EQ(ReadRunSource(m_link, 1, value), 1);
    EXPECT_EQ(value, 2);
    float version = 0;
    EXPECT_EQ(ReadVersion(m_link, 1, version), 1);
    EXPECT_FLOAT_EQ(version, 1.234f);
    QString text;
    EXPECT_EQ(ReadParameterText(m_link, RegCapacityCode, 1, text), 1);
    EXPECT_EQ(text, QStringLiteral("1205"));

    Identification id;
    EXPECT_TRUE(ReadIdentification(m_link, 1, ReplyCaller::Identification, id).ok);
    EXPECT_EQ(id.capacity, 1205);
    EXPECT_EQ(id.version, 1234);
    EXPECT_EQ(VersionText(id.version), QStringLiteral("1.234"));
    // One frame of two registers, its reply 9 bytes long.
    const auto sent = m_line->Sent();
    ASSERT_FALSE(sent.empty());
    EXPECT_EQ(sent.back(), (std::vector<unsigned char>{1, 0x03, 0x0D, 0x00, 0x00, 0x02, 0xC6, 0xA7}));
    EXPECT_TRUE(prompt.Texts().isEmpty());
}

TEST_F(RegisterReaders, RunStatusAndPasswordState)
{
    ScriptedPrompt prompt;
    int running = -1;
    EXPECT_EQ(ReadRunStatus(m_link, 1, running), 1);
    EXPECT_EQ(running, 0);
    ASSERT_EQ(WriteReg(1, RegControlWord, ControlBit::Run), ErrNone);
    EXPECT_EQ(ReadRunStatus(m_link, 1, running), 1);
    EXPECT_EQ(running, 1);

    int locked = -1;
    EXPECT_EQ(ReadPasswordState(m_link, 1, locked), 1);
    EXPECT_EQ(locked, 0);  // reads 0: no password
    ASSERT_EQ(WriteReg(1, RegParameterPassword, 4321), ErrNone);
    ASSERT_EQ(WriteReg(1, RegParameterPassword, 4321), ErrNone);
    EXPECT_EQ(ReadPasswordState(m_link, 1, locked), 1);
    EXPECT_EQ(locked, 1);  // reads 2: locked
    ASSERT_EQ(WriteReg(1, RegParameterPassword, 4321), ErrNone);
    EXPECT_EQ(ReadPasswordState(m_link, 1, locked), 1);
    EXPECT_EQ(locked, 0);  // reads 1: set, but unlocked
    EXPECT_TRUE(prompt.Texts().isEmpty());
}

TEST_F(RegisterReaders, FailuresShowTheirCallersWordAndLeaveTheOutputAlone)
{
    ScriptedPrompt prompt;
    constexpr int kAbsent = 9;
    int value = -7;
    float version = -7;
    QString text = QStringLiteral("kept");
    EXPECT_EQ(ReadCapacity(m_link, kAbsent, value), 0);
    EXPECT_EQ(ReadVersion(m_link, kAbsent, version), 0);
    EXPECT_EQ(ReadRunSource(m_link, kAbsent, value), 0);
    EXPECT_EQ(ReadPasswordState(m_link, kAbsent, value), 0);
    EXPECT_EQ(ReadRunStatus(m_link, kAbsent, value), 0);
    EXPECT_EQ(ReadRegister0105(m_link, kAbsent, value), 0);  // silent: its caller adds the word
    // A register the drive doesn't serve: its exception, in the pages' form.
    EXPECT_EQ(ReadParameterText(m_link, 0x0D7F, 1, text), 0);
    EXPECT_EQ(value, -7);
    EXPECT_EQ(version, -7.0f);
    EXPECT_EQ(text, QStringLiteral("kept"));
    EXPECT_EQ(prompt.Texts(), (QStringList{"TimeOut!", "TimeOut!", "Communication error!",
                                           "Read parameter password error!", "TimeOut!",
                                           "Station Num 1\nAddress Error "}));
}

TEST(FaultCodes, RowsAndCodesWithoutOne)
{
    ASSERT_NE(FindFaultCode(0), nullptr);
    EXPECT_STREQ(FindFaultCode(0)->display, "-");
    EXPECT_STREQ(FindFaultCode(14)->display, "EFO");
    EXPECT_STREQ(FindFaultCode(24)->description, "Excessive voltage during operation/deceleration");
    EXPECT_STREQ(FindFaultCode(34)->display, "Err7");
    for (std::uint32_t none : {5u, 7u, 10u, 17u, 31u, 35u, 0xFFFFu})
        EXPECT_EQ(FindFaultCode(none), nullptr) << none;
    EXPECT_EQ(FaultCodeTable().size(), 27u);
}

}  // namespace
}  // namespace quillon::test
