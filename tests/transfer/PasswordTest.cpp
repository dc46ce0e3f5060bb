// The drive's parameter password: the dialogs' field checks, the frame, Set, Change and Clear
// against the simulated drive's lock.

#include "TransferFixture.h"

#include "link/ModbusFrame.h"
#include "link/Registers.h"
#include "transfer/Password.h"
#include "transfer/TransferCommands.h"

namespace quillon::test {
namespace {

TEST(PasswordChecks, FirstFailingCheckInTheDialogsOrder) {
    const QString repeat = QStringLiteral("The repeat password is not same as new password!");
    const QString range = QStringLiteral("Beyond the range!");
    const QString dec = QStringLiteral("The password must be the DEC value!!");

    EXPECT_EQ(CheckPasswordSet("123", "124"), repeat);
    EXPECT_EQ(CheckPasswordSet("65536", "65536"), range);
    EXPECT_EQ(CheckPasswordSet("99999", "99998"), repeat);  // repeat comes before range
    EXPECT_EQ(CheckPasswordSet("12a", "12a"), dec);         // atoi stops at the letter: in range
    EXPECT_EQ(CheckPasswordSet("-1", "-1"), dec);
    EXPECT_EQ(CheckPasswordSet("65535", "65535"), std::nullopt);
    EXPECT_EQ(CheckPasswordSet("", ""), std::nullopt);  // an empty field counts as 0

    EXPECT_EQ(CheckPasswordInput("65536"), range);
    EXPECT_EQ(CheckPasswordInput("12a"), dec);
    EXPECT_EQ(CheckPasswordInput("0"), std::nullopt);

    // Change: the old field first, then new and repeat as in Set.
    EXPECT_EQ(CheckChangePassword("65536", "1", "2"), range);
    EXPECT_EQ(CheckChangePassword("1x", "1", "2"), dec);
    EXPECT_EQ(CheckChangePassword("1", "1", "2"), repeat);
    EXPECT_EQ(CheckChangePassword("1", "70000", "70000"), range);
    EXPECT_EQ(CheckChangePassword("1", "2b", "2b"), dec);
    EXPECT_EQ(CheckChangePassword("", "", ""), std::nullopt);
}

class PasswordTest : public TransferTest {
protected:
    void SetUp() override {
        OpenBus();
        NewProject();
    }
    int LockState() {
        int state = -1;
        m_bus->WithStation(1, [&](sim::SimDrive& d) { state = d.LockState(); });
        return state;
    }
    // Values written to the lock register since ClearSent, in order.
    std::vector<int> PasswordWrites() const {
        std::vector<int> values;
        for (const Frame& f : SentSince())
            if (f[1] == ModbusFn::WriteSingle && RequestRegister(f) == RegParameterPassword)
                values.push_back(FrameWord(f.data(), 4));
        return values;
    }
    void Lock(std::uint16_t password) {
        SetDriveValue(RegParameterPassword, password);
        SetDriveValue(RegParameterPassword, password);
        ASSERT_EQ(LockState(), PasswordState::Locked);
    }
    CTransferCommands m_commands{m_session, m_windows};
};

TEST_F(PasswordTest, SetSendsTheNewPasswordTwiceAndSaysNothing) {
    m_prompt.Station(1);
    m_windows.passwordSet.push_back(QStringLiteral("4321"));
    ClearSent();
    m_commands.OnPasswordSet();
    EXPECT_EQ(PasswordWrites(), (std::vector<int>{4321, 4321}));
    EXPECT_EQ(LockState(), PasswordState::Locked);
    EXPECT_TRUE(m_prompt.Messages().isEmpty());

    // Locked now: Set offers the change, and Cancel there sends nothing.
    m_prompt.Station(1);
    m_windows.changePassword.push_back(std::nullopt);
    ClearSent();
    m_commands.OnPasswordSet();
    EXPECT_TRUE(PasswordWrites().empty());
}

TEST_F(PasswordTest, ChangeUnlocksWithTheOldOneThenSetsTheNewOne) {
    Lock(111);
    m_prompt.Station(1);
    m_windows.changePassword.push_back(ChangePasswordEntry{"111", "222"});
    ClearSent();
    m_commands.OnPasswordSet();
    EXPECT_EQ(PasswordWrites(), (std::vector<int>{111, 222, 222}));
    EXPECT_TRUE(m_prompt.Messages().isEmpty());
    EXPECT_EQ(LockState(), PasswordState::Locked);

    // A wrong old password: the drive stays locked, nothing new is sent.
    m_prompt.Station(1);
    m_windows.changePassword.push_back(ChangePasswordEntry{"111", "333"});
    ClearSent();
    m_commands.OnPasswordSet();
    EXPECT_EQ(PasswordWrites(), std::vector<int>{111});
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Disable password error !"});
}

TEST_F(PasswordTest, ChangeWhoseNewFramesFailLeavesTheDriveUnlocked) {
    Lock(111);
    SetIntercept([](const Frame& f) -> std::optional<Frame> {
        if (f[1] == ModbusFn::WriteSingle && FrameWord(f.data(), 4) == 222)
            return ExceptionReply(f, 'T');
        return std::nullopt;
    });
    m_prompt.Station(1);
    m_windows.changePassword.push_back(ChangePasswordEntry{"111", "222"});
    m_commands.OnPasswordSet();
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Set password failure!"});
    EXPECT_EQ(LockState(), PasswordState::Unlocked);
}

TEST_F(PasswordTest, ClearUnlocksOnlyWithTheRightValue) {
    // No password on the drive: said, and no dialog.
    m_prompt.Station(1);
    m_commands.OnPasswordClear();
    EXPECT_EQ(m_prompt.Messages(), QStringList{"The station num hasn't exist password!"});

    Lock(4321);
    m_prompt.Station(1);
    m_windows.passwordInput.push_back(QStringLiteral("1234"));
    m_commands.OnPasswordClear();
    EXPECT_EQ(m_prompt.Messages().last(), "Disable password error !");
    EXPECT_EQ(LockState(), PasswordState::Locked);

    m_prompt.Station(1);
    m_windows.passwordInput.push_back(QStringLiteral("4321"));
    ClearSent();
    m_commands.OnPasswordClear();
    EXPECT_EQ(m_prompt.Messages().size(), 2);  // success says nothing
    EXPECT_EQ(LockState(), PasswordState::Unlocked);
    EXPECT_EQ(ReadStarts(), (std::vector<int>{RegParameterPassword, RegParameterPassword}));
}

TEST_F(PasswordTest, SilentDriveStopsAtTheLockStateWithItsOwnWord) {
    m_bus->SetSilent(1, true);
    m_prompt.Station(1);
    m_commands.OnPasswordSet();
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Read parameter password error!"});
}

}  // namespace
}  // namespace quillon::test
