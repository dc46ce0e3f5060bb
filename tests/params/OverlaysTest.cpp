// The rated-value and initial-table overlays on a synthetic parameter set.

#include "params/Overlays.h"

#include <gtest/gtest.h>

using namespace quillon;

namespace {

std::vector<ParamGroup> MakeGroups() {
    std::vector<ParamGroup> groups(kGroupCount);
    for (int g = 0; g < kGroupCount; ++g)
        for (int r = 0; r < 30; ++r) {
            ParamRow row;
            row.m_strDefault = QStringLiteral("d%1-%2").arg(g).arg(r);
            row.m_strSetValue = QStringLiteral("s%1-%2").arg(g).arg(r);
            row.m_bExists = 1;
            groups[g].m_rows.push_back(row);
        }
    return groups;
}

// Record i, column c holds "r<i>c<c>".
std::vector<InitRecord> MakeTable(int records = 22, int columns = 27) {
    std::vector<InitRecord> table(records);
    for (int i = 0; i < records; ++i)
        for (int c = 0; c < columns; ++c) table[i].m_values.push_back(QStringLiteral("r%1c%2").arg(i).arg(c));
    return table;
}

}  // namespace

TEST(InitialTableOverlay, LoadedProjectKeepsItsSetValues) {
    auto groups = MakeGroups();
    ApplyInitialTableTo(groups, MakeTable(), 405, false);
    EXPECT_EQ(groups[2].m_rows[0].m_strDefault, "r4c26");
    EXPECT_EQ(groups[2].m_rows[0].m_strSetValue, "s2-0");
    EXPECT_EQ(groups[8].m_rows[2].m_strDefault, "r19c15");
}

TEST(InitialTableOverlay, ModelWithoutColumnsWritesEmptyTexts) {
    auto groups = MakeGroups();
    ApplyInitialTableTo(groups, MakeTable(), 1102, true);
    EXPECT_TRUE(groups[1].m_rows[1].m_strDefault.isEmpty());
    EXPECT_TRUE(groups[1].m_rows[1].m_strSetValue.isEmpty());
    EXPECT_TRUE(groups[kSimplifiedGroup].m_rows[11].m_strDefault.isEmpty());
}

TEST(InitialTableOverlay, ShortTableOrRecordIsARangeFailure) {
    auto groups = MakeGroups();
    EXPECT_THROW(ApplyInitialTableTo(groups, MakeTable(21), 201, true), std::out_of_range);
    EXPECT_THROW(ApplyInitialTableTo(groups, MakeTable(22, 17), 201, true), std::out_of_range);
    // Column 17 is the last one model 201 needs; set B needs only up to 6.
    EXPECT_NO_THROW(ApplyInitialTableTo(groups, MakeTable(22, 18), 201, true));
}

TEST(RatedDefaults, LoadedProjectGetsDefaultsOnlyAndKeepsMotorFrequencyDefault) {
    auto groups = MakeGroups();
    ApplyRatedDefaultsTo(groups, "R770-405-Kxx", 405, 0, false);
    EXPECT_EQ(groups[0].m_rows[12].m_strDefault, "50.00");
    EXPECT_EQ(groups[0].m_rows[12].m_strSetValue, "s0-12");
    EXPECT_EQ(groups[2].m_rows[3].m_strDefault, "1445");
    EXPECT_EQ(groups[2].m_rows[6].m_strDefault, "d2-6");  // 02-06 only in a new project
    EXPECT_EQ(groups[13].m_rows[0].m_strDefault, "405");
    EXPECT_EQ(groups[13].m_rows[0].m_strSetValue, "s13-0");
}

TEST(RatedDefaults, SpeedOnlyForListedModelsAndNothingForAnUnknownClass) {
    auto groups = MakeGroups();
    ApplyRatedDefaultsTo(groups, "R770-208-Kxx", 208, 1, true);
    EXPECT_EQ(groups[2].m_rows[3].m_strDefault, "d2-3");
    EXPECT_EQ(groups[13].m_rows[0].m_strDefault, "208");

    auto untouched = MakeGroups();
    ApplyRatedDefaultsTo(untouched, "R770-201-Kxx", 201, 2, true);
    EXPECT_EQ(untouched[0].m_rows[11].m_strDefault, "d0-11");
    EXPECT_EQ(untouched[13].m_rows[0].m_strDefault, "d13-0");

    // A name that is no model: the session's code still picks the speed; the capacity is empty.
    auto unnamed = MakeGroups();
    ApplyRatedDefaultsTo(unnamed, "", 203, 0, true);
    EXPECT_EQ(unnamed[2].m_rows[3].m_strDefault, "1455");
    EXPECT_TRUE(unnamed[13].m_rows[0].m_strDefault.isEmpty());
}

TEST(RatedDefaults, EmptyParameterSetIsARangeFailure) {
    std::vector<ParamGroup> none;
    EXPECT_THROW(ApplyRatedDefaultsTo(none, "R770-201-Kxx", 201, 0, true), std::out_of_range);
}
