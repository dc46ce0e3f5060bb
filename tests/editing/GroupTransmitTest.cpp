// Transmit Group against the in-process simulated drive: the guards in their order, the group's
// write routine with the pages' texts, and the changed marks cleared also after a failure.

#include "../transfer/TransferFixture.h"
#include "editing/EditorTable.h"
#include "editing/GroupTransmit.h"
#include "link/Registers.h"
#include "shell/ParamList.h"

namespace quillon::test {
namespace {

TEST(EditorTable, FrontTabGoesByTensOfTheRow) {
    EXPECT_EQ(FrontTab(0, -1), 0);
    EXPECT_EQ(FrontTab(0, 20), 2);
    EXPECT_EQ(FrontTab(0, 30), -1);
    EXPECT_EQ(FrontTab(2, 15), 0);
    EXPECT_EQ(FrontTab(3, 20), 1);  // the tab's text says 03-14 to 03-21
    EXPECT_EQ(FrontTab(5, 24), 2);
    EXPECT_EQ(FrontTab(5, 25), -1);
    EXPECT_EQ(FrontTab(9, 10), 1);
    EXPECT_EQ(FrontTab(9, 11), -1);
    EXPECT_EQ(FrontTab(14, 33), 3);
}

class GroupTransmitTest : public TransferTest {
protected:
    void SetUp() override {
        OpenBus();
        NewProject();
    }
    // Transmit Group of `group` to station 1 with the pages giving `values`.
    bool Transmit(int group, std::optional<GroupValues> values) {
        m_prompt.Station(1);
        TransmitContext context{m_session, *m_doc, m_link.get(), {}, 0.0f};
        return TransmitGroup(group, context, [&] { return values; });
    }
};

TEST_F(GroupTransmitTest, TheGroupRoutineWithThePagesTextsMarksClearedAlsoAfterAFailure) {
    // The routine refuses 00-02 equal to 00-03 after the guards; the marks clear all the same.
    m_doc->SetSetValue(0, 12, QStringLiteral("55.00"), RowMark::Changed);
    ClearSent();
    EXPECT_FALSE(Transmit(0, GroupValues{{2, "1"}, {3, "1"}}));
    EXPECT_EQ(ReadStarts().at(2), RegSoftwareVersion);
    EXPECT_TRUE(WriteStarts().empty());
    EXPECT_FALSE(m_session.m_strLastError.isEmpty());
    EXPECT_EQ(m_prompt.Messages().last(), m_session.m_strLastError);
    EXPECT_FALSE(m_doc->RowChanged(0, 12));

    // A page that refused: nothing is written, nothing more said, the marks clear.
    m_doc->SetSetValue(0, 12, QStringLiteral("55.00"), RowMark::Changed);
    const auto said = m_prompt.Messages().size();
    EXPECT_FALSE(Transmit(0, std::nullopt));
    EXPECT_EQ(m_prompt.Messages().size(), said);
    EXPECT_FALSE(m_doc->RowChanged(0, 12));

    // The pages' texts go out, not the project's.
    EXPECT_TRUE(Transmit(0, GroupValues{{12, "44.00"}}));
    EXPECT_EQ(m_prompt.Messages().last(), "Write successful!");
    EXPECT_EQ(DriveValue(0x000C), 4400);
    EXPECT_EQ(m_doc->RowAt(0, 12).m_strSetValue, "55.00");
}

TEST_F(GroupTransmitTest, GuardsInOrderStopBeforeTheTransmitStep) {
    m_doc->SetSetValue(0, 12, QStringLiteral("55.00"), RowMark::Changed);
    SetDriveValue(RegParameterPassword, 4321);
    SetDriveValue(RegParameterPassword, 4321);
    SetDriveValue(RegControlWord, ControlBit::Run);
    ClearSent();
    int steps = 0;
    m_prompt.Station(1);
    TransmitContext context{m_session, *m_doc, m_link.get(), {}, 0.0f};
    auto step = [&]() -> std::optional<GroupValues> { ++steps; return GroupValues{}; };
    EXPECT_FALSE(TransmitGroup(0, context, step));
    EXPECT_EQ(ReadStarts(), std::vector<int>{RegParameterPassword});
    EXPECT_EQ(m_prompt.Messages().last(),
              "The station num 1 has exist password, can't write parameter value!");

    SetDriveValue(RegParameterPassword, 4321);  // unlocked, still running
    ClearSent();
    m_prompt.Station(1);
    EXPECT_FALSE(TransmitGroup(0, context, step));
    EXPECT_EQ(ReadStarts(), (std::vector<int>{RegParameterPassword, RegStatusWord}));
    EXPECT_EQ(m_prompt.Messages().last(), "INV is running,please stop it first.");

    m_prompt.Station(std::nullopt);  // the station dialog cancelled: nothing at all
    ClearSent();
    EXPECT_FALSE(TransmitGroup(0, context, step));
    EXPECT_TRUE(SentSince().empty());
    EXPECT_EQ(steps, 0);
    EXPECT_TRUE(m_doc->RowChanged(0, 12));  // the transmit step never began
}

// The list's double click counts listed rows: behind the gap of group 02 the row falls short.
TEST_F(GroupTransmitTest, ListItemsMapToListedRows) {
    EXPECT_EQ(EditorTargetOfItem(*m_doc, 2, 0), std::nullopt);  // the heading
    EXPECT_EQ(EditorTargetOfItem(*m_doc, 2, 8), std::make_pair(2, 7));  // 02-15
    EXPECT_EQ(EditorTargetOfItem(*m_doc, 2, 9), std::nullopt);
    int listed0 = 0;
    for (int r = 0; r < kRowsPerGroup; ++r) listed0 += m_doc->m_rowExists[0][r];
    EXPECT_EQ(EditorTargetOfItem(*m_doc, -1, 1), std::make_pair(0, 0));
    EXPECT_EQ(EditorTargetOfItem(*m_doc, -1, listed0 + 1), std::nullopt);  // heading of 01
    EXPECT_EQ(EditorTargetOfItem(*m_doc, -1, listed0 + 2), std::make_pair(1, 0));
}

}  // namespace
}  // namespace quillon::test
