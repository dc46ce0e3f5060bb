// The group write routines, their guards and the Write command against the simulated drive.

#include "TransferFixture.h"

#include "base/TextConv.h"
#include "base/TextTable.h"
#include "link/ModbusFrame.h"
#include "link/Registers.h"
#include "transfer/GroupRead.h"
#include "transfer/GroupWrite.h"
#include "transfer/TransferCommands.h"

#include <array>
#include <chrono>
#include <map>

namespace quillon::test {
namespace {

class WriteCommandTest : public TransferTest {
protected:
    void SetUp() override {
        OpenBus();
        NewProject();
    }
    WriteSnapshot Snapshot() {
        WriteSnapshot s;
        FillWriteSnapshot(*m_doc, s);
        return s;
    }
    // Runs the Write command on station 1; true when it ended with "Write successful!".
    // `answer` is for the question about another model.
    bool Write(std::optional<Answer> answer = std::nullopt) {
        m_prompt.Station(1);
        if (answer) m_prompt.Answer(*answer);
        return m_commands.OnWrite();
    }
    CGroupWriter Writer() { return CGroupWriter(*m_link, m_session); }
    CTransferCommands m_commands{m_session, m_windows};
};

// A text a few steps of its register away from `text`, in the row's own format: what a person
// editing every row would leave. The group write cuts decimals without a nudge on most rows, so
// a text like "2.51" goes out as 250; the value taken is one the write carries exactly.
QString Changed(int group, int row, const QString& text) {
    const RegFormat format = ReadFormatOf(group, row);
    const quint16 v = ParseRegisterText(format, text);
    if (format == RegFormat::B5) return FormatRegister(format, v ^ 1u);
    if (format == RegFormat::O5) return FormatRegister(format, (v & 7u) == 7u ? v - 1 : v + 1);
    const int step = GroupScalingOf(group, row) == GroupScaling::WholeTimesTen ? 10 : 1;
    for (int k = 1; k < 10; ++k) {
        const auto next = static_cast<quint16>(v + k * step);
        const QString changed = FormatRegister(format, next);
        if (GroupWriteValue(group, row, changed) == next) return changed;
    }
    ADD_FAILURE() << "no value near " << text.toStdString() << " survives the write";
    return text;
}

TEST_F(WriteCommandTest, ChangedValuesInEveryGroupComeBackByRead) {
    for (int g = 0; g < 14; ++g)
        for (int r = 0; r < static_cast<int>(m_doc->GroupAt(g).m_rows.size()); ++r)
            if (Row(g, r).m_bExists && IsWrittenRow(g, r, WriteRoute::Command))
                Row(g, r).m_strSetValue = Changed(g, r, Row(g, r).m_strSetValue);
    // The free curve, so that its points are written too, in an order the drive takes point by
    // point from its factory curve.
    const char* curve[] = {"7",    nullptr, nullptr, nullptr, "3.00",
                           "15.0", "2.00",  "10.0",  "1.00",  "5.0"};
    for (int r = 0; r < 10; ++r)
        if (curve[r]) Row(1, r).m_strSetValue = QString::fromLatin1(curve[r]);
    // The communication settings of the project differ from the drive's, and stay unsent.
    std::vector<std::uint16_t> commBefore;
    for (int r = 0; r <= 5; ++r) {
        commBefore.push_back(DriveValue(0x0900 + r));
        Row(9, r).m_strSetValue = QString::number(commBefore.back() + 1);
    }
    const WriteSnapshot written = Snapshot();
    ClearSent();
    ASSERT_TRUE(Write()) << m_prompt.Messages().join('|').toStdString();
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Write successful!"});

    // Nothing of the communication settings went out.
    for (int r = 0; r <= 5; ++r) {
        EXPECT_FALSE(WrittenRegisters().count(0x0900 + r));
        EXPECT_EQ(DriveValue(0x0900 + r), commBefore[static_cast<std::size_t>(r)]);
    }

    m_doc->SetModifiedFlag(false);
    m_prompt.Station(1);
    ASSERT_TRUE(m_commands.OnRead());
    int compared = 0;
    for (int g = 0; g < 14; ++g)
        for (int r = 0; r < kSnapshotRows; ++r)
            if (IsWrittenRow(g, r, WriteRoute::Command) && m_doc->m_rowExists[g][r]) {
                EXPECT_EQ(Row(g, r).m_strSetValue, written[g][r]) << g << "-" << r;
                ++compared;
            }
    EXPECT_GT(compared, 200);
}

// A valid value of the row other than `current`: the far end of its limits, its last entry or
// its highest digits, as a person would set it on the row's page.
QString OtherValidText(const ParamSpec& s, const QString& current, int model) {
    QStringList choices;
    const int entries = static_cast<int>(OptionsOf(s).size());
    if (s.comboValue == ComboValue::ResetCode) {
        choices << ResetCodeOfIndex(entries - 1) << ResetCodeOfIndex(0);
    } else if (s.control == ControlKind::Combo) {
        const int first = s.comboValue == ComboValue::IndexPlusOne ? 1 : 0;
        choices << QString::number(first + entries - 1) << QString::number(first);
    } else if (s.control == ControlKind::DigitGroup) {
        const QString high = QString(s.digits.fixed, u'0') +
                             QString(s.digits.count - s.digits.fixed, QChar(u'0' + s.digits.base - 1));
        choices << high << QString(s.digits.count, u'0');
    } else if (const auto limits = LimitsOf(s, model, LimitCheck::Button)) {
        choices << FormatFixed(limits->upper, s.Decimals()) << FormatFixed(limits->lower, s.Decimals());
    }
    return choices.value(choices.value(0) == current ? 1 : 0);
}

// Every row a page can write: its value checked and converted by the table, sent in the write
// button's frame, comes back by the group read (or, for the rows no group frame reads, from
// the register) as the same text.
TEST_F(WriteCommandTest, EveryWritableRowOfThePagesComesBackByRead) {
    std::map<const ParamSpec*, QString> sent;
    for (const ParamSpec& s : ParamTable()) {
        const bool pageWrites = s.control != ControlKind::None && s.control != ControlKind::TextEdit;
        if (s.readOnly || !pageWrites) continue;
        const QString text = OtherValidText(s, Row(s.group, s.row).m_strSetValue, 1205);
        const Converted c = ConvertAndValidate(s, text, 1205, LimitCheck::Button);
        ASSERT_TRUE(c.Ok()) << s.Code().toStdString() << " " << text.toStdString();
        EXPECT_EQ(c.text, text) << s.Code().toStdString();
        std::array<unsigned char, kMaxFrameLength> tx{};
        const int length = BuildWriteSingleFrame(tx, 1, s.Register(), c.value);
        std::array<unsigned char, 8> rx{};
        ASSERT_EQ(m_link->CommandSend(tx.data(), static_cast<unsigned long>(length), rx.data(),
                                      rx.size()),
                  ErrNone)
            << s.Code().toStdString();
        sent[&s] = text;
    }
    EXPECT_GT(sent.size(), 220u);

    m_doc->SetModifiedFlag(false);
    m_prompt.Station(1);
    ASSERT_TRUE(m_commands.OnRead());
    for (const auto& [s, text] : sent) {
        const QString back = IsReadRow(s->group, s->row)
                                 ? Row(s->group, s->row).m_strSetValue
                                 : RegisterToText(*s, DriveValue(s->Register()));
        EXPECT_EQ(back, text) << s->Code().toStdString();
    }
}

TEST_F(WriteCommandTest, GuardsRunInOrderAndStopBeforeAnyParameterFrame) {
    // A locked and running drive: the password is asked first, the run status never.
    SetDriveValue(RegParameterPassword, 4321);
    SetDriveValue(RegParameterPassword, 4321);
    SetDriveValue(RegControlWord, ControlBit::Run);
    ClearSent();
    EXPECT_FALSE(Write());
    EXPECT_EQ(ReadStarts(), std::vector<int>{RegParameterPassword});
    EXPECT_EQ(m_prompt.Messages().last(),
              "The station num 1 has exist password, can't write parameter value!");

    // Unlocked but running.
    SetDriveValue(RegParameterPassword, 4321);
    ClearSent();
    EXPECT_FALSE(Write());
    EXPECT_EQ(ReadStarts(), (std::vector<int>{RegParameterPassword, RegStatusWord}));
    EXPECT_EQ(m_prompt.Messages().last(), "INV is running,please stop it first.");
    EXPECT_TRUE(WriteStarts().empty());
    EXPECT_EQ(m_session.m_bWriting, 0);
}

TEST_F(WriteCommandTest, OtherModelOfTheSameClassKeepsTheDrivesMotorData) {
    OpenBus([] {
        sim::BusSetup setup = TestBusSetup();
        setup.stations = {sim::StationSetup{1, 201}};  // class 100 like the project's 1205
        return setup;
    }());
    NewProject(1205);
    Row(2, 1).m_strSetValue = QStringLiteral("5.5");

    // No: nothing is written.
    ClearSent();
    EXPECT_FALSE(Write(Answer::No));
    EXPECT_TRUE(WriteStarts().empty());
    EXPECT_EQ(m_prompt.Texts().last(),
              "Inverter's type may be not match you select type.Continue ?");

    // Yes: group 02 is left out, its label and position still pass, and the list of motor
    // parameters comes up before the success message.
    ClearSent();
    ASSERT_TRUE(Write(Answer::Yes));
    for (int reg : WrittenRegisters()) EXPECT_NE(reg >> 8, 2) << std::hex << reg;
    EXPECT_TRUE(WrittenRegisters().count(0x0300));
    EXPECT_EQ(m_commands.WriteMotorData(), 0);
    ASSERT_EQ(m_windows.unwrittenShown.size(), 1u);
    EXPECT_FALSE(m_windows.unwrittenShown[0].isEmpty());
    EXPECT_EQ(m_windows.unwrittenShown[0].size(),
              static_cast<qsizetype>(m_doc->m_motorList.size()));
    EXPECT_EQ(m_windows.messagesBeforeUnwritten, static_cast<int>(m_prompt.Messages().size()) - 1);
    EXPECT_EQ(m_prompt.Messages().last(), "Write successful!");
    EXPECT_TRUE(m_windows.progress.labels.contains("02-XX -- Station Num:1"));
    EXPECT_EQ(m_windows.progress.positions,
              (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}));
    EXPECT_EQ(m_windows.progress.range, std::make_pair(0, 15));
    EXPECT_EQ(m_windows.progress.title, "Write Inverter function parameter...,");

    // The next Write to a drive of the project's own model writes motor data again.
    NewProject(201);
    ClearSent();
    ASSERT_TRUE(Write());
    EXPECT_TRUE(WrittenRegisters().count(0x0201));
    EXPECT_EQ(m_windows.unwrittenShown.size(), 1u);
}

TEST_F(WriteCommandTest, OtherVoltageClassIsRefused) {
    OpenBus([] {
        sim::BusSetup setup = TestBusSetup();
        setup.stations = {sim::StationSetup{1, 401}};
        return setup;
    }());
    NewProject(1205);
    ClearSent();
    EXPECT_FALSE(Write());
    EXPECT_EQ(m_prompt.Messages(), QStringList{LoadText(TextId::VoltageClassMismatch)});
    EXPECT_TRUE(WriteStarts().empty());
}

TEST_F(WriteCommandTest, FixedCurveSendsNoCurvePointsAndChecksNone) {
    Row(1, 0).m_strSetValue = QStringLiteral("1");
    // A list that breaks the chain: not looked at while 01-00 isn't 7.
    Row(1, 4).m_strSetValue = QStringLiteral("0.10");
    Row(1, 8).m_strSetValue = QStringLiteral("9.00");
    Row(1, 1).m_strSetValue = QStringLiteral("50.5");
    ClearSent();
    ASSERT_EQ(Writer().WriteGroup01(Snapshot(), 1), 1);
    EXPECT_EQ(WriteStarts(), (std::vector<int>{0x0100, 0x010A}));
    EXPECT_TRUE(ReadStarts().empty());
    EXPECT_EQ(DriveValue(0x0101), 500);  // 01-01 loses its decimals in the group write
}

TEST_F(WriteCommandTest, CurvePointsGoOneByOneAndARefusalEndsTheGroupThere) {
    struct Case {
        int row;
        const char* text;  // the list's value for the row
        int driveReg;      // a partner set on the drive first
        std::uint16_t driveValue;
        const char* message;
    };
    const Case cases[] = {
        {4, "1.00", 0x0106, 150, "when 01-04>=01-06,the parameter can be writed into inverter!"},
        {5, "10.0", 0x0107, 150, "when 01-05>=01-07,the parameter can be writed into inverter!"},
        {6, "0.50", 0x0108, 60,
         "when 01-04>=01-06>=01-08,the parameter can be writed into inverter!"},
        {7, "5.0", 0x0109, 60,
         "when 01-05>=01-07>=01-09,the parameter can be writed into inverter!"},
        {8, "60.00", -1, 0, "when 01-06>=01-08,the parameter can be writed into inverter!"},
        // 01-09 above the drive's 01-07 speaks of 01-05 and 01-07.
        {9, "500.0", -1, 0, "when 01-05>=01-07,the parameter can be writed into inverter!"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.row);
        NewProject();
        OpenBus();
        Row(1, 0).m_strSetValue = QStringLiteral("7");
        if (c.driveReg >= 0) SetDriveValue(c.driveReg, c.driveValue);
        Row(1, c.row).m_strSetValue = QString::fromLatin1(c.text);
        ClearSent();
        EXPECT_EQ(Writer().WriteGroup01(Snapshot(), 1), 0);
        EXPECT_EQ(m_session.m_strLastError, c.message);
        // The points before the refused one went out, one frame each; nothing after.
        std::vector<int> expected{0x0100, 0x0102};
        for (int r = 4; r < c.row; ++r) expected.push_back(0x0100 + r);
        EXPECT_EQ(WriteStarts(), expected);
    }
}

TEST_F(WriteCommandTest, ChainPointsAreCheckedAgainstTheDrive) {
    Row(1, 0).m_strSetValue = QStringLiteral("7");
    Row(1, 4).m_strSetValue = QStringLiteral("0.29");  // goes out as 29 thanks to the nudge
    SetDriveValue(0x0106, 29);
    SetDriveValue(0x0108, 10);
    Row(1, 6).m_strSetValue = QStringLiteral("0.20");
    Row(1, 8).m_strSetValue = QStringLiteral("0.10");
    ClearSent();
    ASSERT_EQ(Writer().WriteGroup01(Snapshot(), 1), 1) << m_session.m_strLastError.toStdString();
    EXPECT_EQ(DriveValue(0x0104), 29);
    // The partners are read just before each point, 01-06 being read before 01-04 is sent.
    const std::vector<int> reads = ReadStarts();
    EXPECT_EQ(reads,
              (std::vector<int>{0x0106, 0x0107, 0x0104, 0x0108, 0x0105, 0x0109, 0x0106, 0x0107}));
    EXPECT_EQ(WriteStarts().back(), 0x010A);
}

TEST_F(WriteCommandTest, MotorCurrentsKeepTheirOrderOnTheDrive) {
    // 02-00 equal to the drive's 02-01 is refused before anything of group 02 goes out.
    const std::uint16_t rated = DriveValue(0x0201);
    Row(2, 0).m_strSetValue = FormatRegister(RegFormat::D1, rated);
    ClearSent();
    EXPECT_EQ(Writer().WriteGroup02(Snapshot(), 1), 0);
    EXPECT_EQ(m_session.m_strLastError, "The value of 02-00 must be less than the value of 02-01!");
    EXPECT_TRUE(WriteStarts().empty());

    // 02-01 equal to the drive's 02-00 (the value just sent) passes.
    Row(2, 0).m_strSetValue = QStringLiteral("0.5");
    Row(2, 1).m_strSetValue = QStringLiteral("0.5");
    ClearSent();
    ASSERT_EQ(Writer().WriteGroup02(Snapshot(), 1), 1) << m_session.m_strLastError.toStdString();
    EXPECT_EQ(WriteStarts(), (std::vector<int>{0x0200, 0x0201, 0x020F}));
    EXPECT_EQ(ReadStarts(), (std::vector<int>{0x0201, 0x0200}));

    // 02-01 below the drive's 02-00 is refused after 02-00 went out.
    Row(2, 0).m_strSetValue = QStringLiteral("0.4");
    Row(2, 1).m_strSetValue = QStringLiteral("0.3");
    ClearSent();
    EXPECT_EQ(Writer().WriteGroup02(Snapshot(), 1), 0);
    EXPECT_EQ(WriteStarts(), std::vector<int>{0x0200});
}

TEST_F(WriteCommandTest, EqualSourcesAreRefusedBeforeAnyFrame) {
    struct Case {
        int group, a, b;
        const char* message;
    };
    const Case cases[] = {
        {0, 2, 3, "The value of parameter 00-02 and 00-03 can't be the same!"},
        {0, 5, 6, "The value of parameter 00-05 and 00-06 can't be same!"},
        {10, 0, 1, "The value of parameter 10-00 and 10-01can't be same!"},
    };
    for (const Case& c : cases) {
        NewProject();
        Row(c.group, c.a).m_strSetValue = Row(c.group, c.b).m_strSetValue;
        ClearSent();
        EXPECT_EQ(Writer().WriteGroup(c.group, Snapshot(), 1), 0);
        EXPECT_EQ(m_session.m_strLastError, c.message);
        EXPECT_TRUE(SentSince().empty());
    }
}

TEST_F(WriteCommandTest, Group00ReadsTheRunSourceAndKeepsTheNewOne) {
    Row(0, 2).m_strSetValue = QStringLiteral("2");
    Row(0, 3).m_strSetValue = QStringLiteral("1");
    Row(0, 18).m_strSetValue = QStringLiteral("0.29");
    m_session.m_nReg0002 = 0;
    ClearSent();
    ASSERT_EQ(Writer().WriteGroup00(Snapshot(), 1), 1);
    EXPECT_EQ(ReadStarts(), std::vector<int>{RegRunSource});
    EXPECT_EQ(WriteStarts(), (std::vector<int>{0x0000, 0x0009}));  // 00-08 is skipped
    EXPECT_EQ(m_session.m_nReg0002, 2);
    EXPECT_EQ(DriveValue(0x0012), 29);
}

TEST_F(WriteCommandTest, FailedFrameNamesStationAndGroupAndStopsTheWrite) {
    SetIntercept([](const Frame& f) -> std::optional<Frame> {
        if (f[1] == ModbusFn::WriteMultiple && RequestRegister(f) == 0x0511)
            return ExceptionReply(f, 'T');
        return std::nullopt;
    });
    ClearSent();
    EXPECT_FALSE(Write());
    EXPECT_EQ(m_prompt.Messages(),
              QStringList{"Station Num 1:write parameter group 5 DATA Over Range"});
    EXPECT_EQ(WriteStarts().back(), 0x0500);
    EXPECT_EQ(m_session.m_bWriting, 0);
    EXPECT_FALSE(m_windows.progress.visible);

    // The line lost in the middle: one message, at once.
    SetIntercept([this](const Frame& f) -> std::optional<Frame> {
        if (f[1] == ModbusFn::WriteMultiple && RequestRegister(f) == 0x0306) m_line->Cut();
        return std::nullopt;
    });
    const auto t0 = std::chrono::steady_clock::now();
    EXPECT_FALSE(Write());
    EXPECT_LT(SecondsSince(t0), 0.5);
    EXPECT_EQ(m_prompt.Messages().last(),
              "Station Num 1:write parameter group 3 Communication error!");
}

// The one message a Write shows when the reply to `frame` has a bad CRC: the group write names
// station and group, the guards before them say what they were checking.
QString WriteCrcMessage(const Frame& frame) {
    const QString crc = QStringLiteral("CRC parity error!");
    const int reg = RequestRegister(frame);
    if (frame[1] == ModbusFn::WriteMultiple)
        return QStringLiteral("Station Num 1:write parameter group %1 ").arg(reg >> 8) + crc;
    if (frame[1] != ModbusFn::ReadHolding || FrameWord(frame.data(), 4) != 1) return crc;
    if (reg == RegParameterPassword) return QStringLiteral("Read parameter password error!");
    // The run source before group 00; the curve points and motor currents groups 01 and 02
    // check against.
    if (reg == RegRunSource || (reg >> 8) == 1 || (reg >> 8) == 2)
        return QStringLiteral("Communication error!");
    return crc;  // run status, model word, capacity, version
}

// Whichever reply is spoiled, Read and Write end at that frame, not a frame later and without a
// retry, with exactly the message of the caller that sent it; a command that meets no spoiled
// reply runs through. The link stays open.
TEST_F(WriteCommandTest, BadReplyAtAnyFrameEndsReadAndWriteThereWithOneMessage) {
    for (const bool write : {false, true}) {
        bool ranThrough = false;
        for (int n = 1; n < 60 && !ranThrough; n += (n < 8 ? 1 : 3)) {
            SCOPED_TRACE(testing::Message() << (write ? "Write" : "Read") << ", reply " << n);
            sim::BusSetup setup = TestBusSetup();
            setup.faults.badCrcEvery = n;
            OpenBus(setup);
            NewProject();
            const int before = static_cast<int>(m_prompt.Messages().size());
            m_prompt.Station(1);
            const bool ok = write ? m_commands.OnWrite() : m_commands.OnRead();
            const std::vector<Frame> sent = Sent();
            const QStringList shown = m_prompt.Messages().mid(before);
            ranThrough = static_cast<int>(sent.size()) < n;
            if (ranThrough) {
                EXPECT_TRUE(ok);
                EXPECT_EQ(shown.size(), 1) << shown.join('|').toStdString();
                EXPECT_GT(n, 25);
                continue;
            }
            EXPECT_FALSE(ok);
            ASSERT_EQ(static_cast<int>(sent.size()), n);
            const QString word = QStringLiteral("CRC parity error!");
            EXPECT_EQ(shown, QStringList{write ? WriteCrcMessage(sent.back()) : word});
            EXPECT_TRUE(m_link->IsOpen());
            EXPECT_FALSE(m_windows.progress.visible);
        }
        EXPECT_TRUE(ranThrough);
    }
}

TEST_F(WriteCommandTest, EditorRoutinesOfGroup13AndTheSimplifiedGroup) {
    WriteSnapshot s;
    FillWriteSnapshot(*m_doc, s, 13, 14);
    s[13][8] = QStringLiteral("1150");
    s[14][5] = QStringLiteral("12.34");
    s[14][27] = QStringLiteral("00101");
    ClearSent();
    ASSERT_EQ(Writer().WriteGroup13(s, 1), 1);
    EXPECT_EQ(WriteStarts(), std::vector<int>{0x0D05});
    ClearSent();
    ASSERT_EQ(Writer().WriteGroup13Editor(s, 1), 1);
    EXPECT_EQ(WriteStarts(), (std::vector<int>{0x0D03, 0x0D08}));
    EXPECT_EQ(DriveValue(0x0D08), 1150);
    ClearSent();
    ASSERT_EQ(Writer().WriteGroupFxx(s, 1), 1);
    EXPECT_EQ(WriteStarts(), (std::vector<int>{0x0E01, 0x0E10, 0x0E20}));
    EXPECT_EQ(DriveValue(0x0E05), 1234);
    EXPECT_EQ(DriveValue(0x0E1B), 5);
}

}  // namespace
}  // namespace quillon::test
