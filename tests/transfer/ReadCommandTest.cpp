// The group read routines and the Read command against the simulated drive.

#include "TransferFixture.h"

#include "base/StatusPanes.h"
#include "link/ModbusFrame.h"
#include "link/Registers.h"
#include "params/ModelTable.h"
#include "transfer/GroupRead.h"
#include "transfer/TransferCommands.h"

#include <chrono>

namespace quillon::test {
namespace {

constexpr int kIdentificationFrames = 3;  // model word, capacity, version
constexpr int kGroupReadFrames = 26;

class ReadCommandTest : public TransferTest {
protected:
    void SetUp() override {
        OpenBus();
        NewProject();
    }
    CTransferCommands m_commands{m_session, m_windows};
};

TEST_F(ReadCommandTest, RoutinesTurnRegistersIntoTheTextsOfTheirRowsAndNothingElse) {
    SetDriveValue(0x0309, 19);      // B5
    SetDriveValue(0x0C00, 012345);  // O5, octal digits
    SetDriveValue(0x000B, 100);     // D2
    SetDriveValue(0x0D08, 7);       // Z4
    Row(3, 9).m_strSetValue = QStringLiteral("set");

    CGroupReader reader(*m_link, *m_doc, m_session.m_strLastError);
    ClearSent();
    ASSERT_EQ(reader.ReadGroup03(1), 1);
    ASSERT_EQ(reader.ReadGroup12(1), 1);
    ASSERT_EQ(reader.ReadGroup00(1), 1);
    ASSERT_EQ(reader.ReadGroup13(1), 1);
    EXPECT_EQ(Row(3, 9).m_strReadValue, "10011");
    EXPECT_EQ(Row(12, 0).m_strReadValue, "12345");
    EXPECT_EQ(Row(0, 11).m_strReadValue, "1.00");
    EXPECT_EQ(Row(13, 8).m_strReadValue, "0007");
    EXPECT_EQ(Row(13, 0).m_strReadValue, "2P5");       // the capacity code of model 1205
    EXPECT_EQ(Row(3, 9).m_strSetValue, "set");         // a read touches read values only
    EXPECT_TRUE(Row(3, 10).m_strReadValue.isEmpty());  // 03-10 lies in a hole of the read
    // Group 03 in its four frames, in order.
    EXPECT_EQ(ReadStarts(),
              (std::vector<int>{0x0300, 0x0306, 0x030B, 0x030D, 0x0C00, 0x0000, 0x0D00}));
}

TEST_F(ReadCommandTest, ReadsTheDriveIntoTheProjectStepByStep) {
    OpenBus([] {
        sim::BusSetup setup = TestBusSetup();
        setup.stations = {sim::StationSetup{3, 201}};
        setup.version = 1234;
        return setup;
    }());
    NewProject(1205, {3});
    SetDriveValue(0x000B, 4321, 3);
    m_prompt.Station(3);

    ClearSent();
    ASSERT_TRUE(m_commands.OnRead());

    // Identification, then the 26 frames of the fifteen groups, all to the chosen station.
    const auto sent = SentSince();
    ASSERT_EQ(sent.size(), std::size_t(kIdentificationFrames + kGroupReadFrames));
    EXPECT_EQ(ReadStarts()[0], RegModelWord);
    EXPECT_EQ(ReadStarts()[1], RegCapacityCode);
    EXPECT_EQ(ReadStarts()[2], RegSoftwareVersion);
    for (const Frame& f : sent) EXPECT_EQ(f[0], 3);

    // The drive's model is the project's now, with its catalogue; read values became set
    // values, and the factory defaults are those of the new model.
    EXPECT_EQ(m_session.m_nModelCode, 201);
    QString capacity;
    EXPECT_EQ(m_session.m_strModelName, ModelNameFromCode(201, capacity));
    EXPECT_EQ(Row(0, 11).m_strSetValue, "43.21");
    EXPECT_EQ(Row(13, 0).m_strSetValue, "201");
    EXPECT_EQ(Row(13, 0).m_strDefault, "201");
    for (int g = 0; g < 15; ++g)
        for (const ParamRow& row : m_doc->GroupAt(g).m_rows) {
            if (row.m_bExists) {
                EXPECT_EQ(row.m_strSetValue, row.m_strReadValue) << row.m_strCode.toStdString();
            }
        }
    EXPECT_TRUE(m_doc->IsModified());
    EXPECT_EQ(m_session.m_bReading, 0);

    // Progress: placed and titled once, fifteen labels, the position after each group.
    EXPECT_EQ(m_windows.progress.shows, 1);
    EXPECT_EQ(m_windows.progress.title, "Read Inverter function parameter...,");
    EXPECT_FALSE(m_windows.progress.visible);
    EXPECT_EQ(m_windows.progress.range, std::make_pair(0, 15));
    ASSERT_EQ(m_windows.progress.labels.size(), 15);
    EXPECT_EQ(m_windows.progress.labels.front(), "00-XX --Station Num:3");
    EXPECT_EQ(m_windows.progress.labels[13], "13-XX --Station Num:3");
    EXPECT_EQ(m_windows.progress.labels.back(), "Fxx --Station Num:3");
    EXPECT_EQ(m_windows.progress.positions.back(), 15);

    EXPECT_EQ(m_windows.listRefreshes, 1);
    EXPECT_EQ(m_windows.panes[Pane::Version], "1.234");
    EXPECT_EQ(m_windows.panes[Pane::Model], m_session.m_strModelName);
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Read sucessful !"});
}

TEST_F(ReadCommandTest, ExceptionInGroup05SecondFrameKeepsWhatCameBeforeAndNoSetValue) {
    const QString setBefore = Row(5, 1).m_strSetValue;
    SetDriveValue(0x0501, 1234);
    SetIntercept([](const Frame& f) -> std::optional<Frame> {
        if (f[1] == ModbusFn::ReadHolding && RequestRegister(f) == 0x0511)
            return ExceptionReply(f, 'R');
        return std::nullopt;
    });
    m_prompt.Station(1);
    ClearSent();
    EXPECT_FALSE(m_commands.OnRead());

    EXPECT_EQ(Row(5, 1).m_strReadValue, "12.34");  // rows 0 to 8 read
    EXPECT_FALSE(Row(5, 0).m_strReadValue.isEmpty());
    EXPECT_TRUE(Row(5, 17).m_strReadValue.isEmpty());  // the failed frame's rows not
    EXPECT_TRUE(Row(6, 0).m_strReadValue.isEmpty());   // nor any later group
    EXPECT_EQ(Row(5, 1).m_strSetValue, setBefore);     // no set value changed
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Address Error "});
    EXPECT_FALSE(m_windows.progress.visible);
    EXPECT_EQ(m_session.m_bReading, 0);
    EXPECT_EQ(m_windows.listRefreshes, 0);
    // Nothing after the failed frame was sent.
    EXPECT_EQ(ReadStarts().back(), 0x0500);
}

TEST_F(ReadCommandTest, ModifiedProjectAsksFirstAndCancelOrARefusedSaveSendsNothing) {
    m_doc->SetModifiedFlag(true);
    m_prompt.Station(1).Answer(Answer::Cancel);
    ClearSent();
    EXPECT_FALSE(m_commands.OnRead());
    EXPECT_TRUE(SentSince().empty());
    EXPECT_EQ(m_prompt.Texts().last(), "The file has been modified,save it or not?");
    // Leaving early keeps the reading flag up: auto refresh stays disabled until a Read ends.
    EXPECT_EQ(m_session.m_bReading, 1);

    m_windows.saveResult = false;
    m_prompt.Station(1).Answer(Answer::Yes);
    EXPECT_FALSE(m_commands.OnRead());
    EXPECT_EQ(m_windows.saves, 1);
    EXPECT_TRUE(SentSince().empty());
    EXPECT_TRUE(m_doc->IsModified());

    // No forgets the changes and reads.
    m_prompt.Station(1).Answer(Answer::No);
    EXPECT_TRUE(m_commands.OnRead());
    EXPECT_EQ(m_session.m_bReading, 0);
}

TEST_F(ReadCommandTest, CancelledStationOrSilentDriveEndsEarly) {
    m_prompt.Station(std::nullopt);
    ClearSent();
    EXPECT_FALSE(m_commands.OnRead());
    EXPECT_EQ(m_session.m_bReading, 0);
    EXPECT_TRUE(SentSince().empty());

    // A drive that keeps silent: the model word reader tells it, the flag stays up, and the
    // project wasn't rebuilt.
    Row(0, 11).m_strSetValue = QStringLiteral("12.34");
    m_bus->SetSilent(1, true);
    m_prompt.Station(1);
    EXPECT_FALSE(m_commands.OnRead());
    EXPECT_EQ(m_prompt.Messages(), QStringList{"TimeOut!"});
    EXPECT_EQ(m_session.m_bReading, 1);
    EXPECT_EQ(Row(0, 11).m_strSetValue, "12.34");
    EXPECT_EQ(m_windows.progress.shows, 0);
}

TEST_F(ReadCommandTest, LineLostInTheMiddleGivesOneMessageWithoutWaiting) {
    int frames = 0;
    SetIntercept([this, &frames](const Frame&) -> std::optional<Frame> {
        if (++frames == 12) m_line->Cut();  // the adapter is pulled during group 04
        return std::nullopt;
    });
    m_prompt.Station(1);
    const auto t0 = std::chrono::steady_clock::now();
    EXPECT_FALSE(m_commands.OnRead());
    EXPECT_LT(SecondsSince(t0), 0.5);
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Communication error!"});
    EXPECT_FALSE(Row(3, 21).m_strReadValue.isEmpty());
    EXPECT_TRUE(Row(4, 0).m_strReadValue.isEmpty());
    EXPECT_EQ(m_session.m_bReading, 0);
}

TEST_F(ReadCommandTest, WithoutAProjectTheReadMakesOneForTheDrive) {
    m_windows.doc = nullptr;
    std::unique_ptr<CM330Doc> created;
    m_windows.newDocument = [&] {
        created = std::make_unique<CM330Doc>(m_session);
        created->OnNewDocument();
        m_windows.doc = created.get();
        return created.get();
    };
    m_prompt.Station(1);
    ASSERT_TRUE(m_commands.OnRead());
    ASSERT_TRUE(created);
    EXPECT_EQ(created->RowAt(13, 0).m_strSetValue, "2P5");
}

}  // namespace
}  // namespace quillon::test
