// The readers of the catalogue files, on small hand-made inputs.

#include "params/CatalogueReader.h"

#include <gtest/gtest.h>

using namespace quillon;

namespace {

struct Parsed {
    std::vector<ParamGroup> groups;
    FlagTable exists{};
};

Parsed Parse(const std::vector<QString>& lines) {
    Parsed p;
    ParseCatalogue(lines, p.groups, p.exists);
    return p;
}

}  // namespace

TEST(CatalogueReader, MissingNumbersBecomeGapRowsSoIndexEqualsNumber) {
    const Parsed p = Parse({"00-00 Control mode@0$1*Control mode", "00-03 Stop method@2$2*Stop method",
                            "#群组 00: 基本功能"});
    ASSERT_EQ(p.groups.size(), 1u);
    const auto& rows = p.groups[0].m_rows;
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(p.groups[0].m_strName, QStringLiteral("群组 00: 基本功能"));
    for (int gap : {1, 2}) {
        EXPECT_EQ(rows[gap].m_strCode, QString::asprintf("00-%02d", gap));
        EXPECT_EQ(rows[gap].m_strDefault, "0");
        EXPECT_EQ(rows[gap].m_strSetValue, "0");
        EXPECT_TRUE(rows[gap].m_strName.isEmpty());
        EXPECT_EQ(rows[gap].m_bExists, 0);
        EXPECT_EQ(p.exists[0][gap], 0);
    }
    EXPECT_EQ(rows[3].m_strCode, "00-03 Stop method");
    EXPECT_EQ(rows[3].m_strDefault, "2");
    EXPECT_EQ(rows[3].m_bExists, 1);
    EXPECT_EQ(p.exists[0][0], 1);
    EXPECT_EQ(p.exists[0][3], 1);
}

TEST(CatalogueReader, RowBelowTheExpectedNumberIsAppendedAtTheEnd) {
    const Parsed p = Parse({"01-05 A@1$1*A", "01-02 B@2$2*B", "#G1"});
    const auto& rows = p.groups[0].m_rows;
    ASSERT_EQ(rows.size(), 7u);  // 0..4 gaps, 5, then 02 at index 6
    EXPECT_EQ(rows[5].m_strDefault, "1");
    EXPECT_EQ(rows[6].m_strCode, "01-02 B");
    EXPECT_EQ(rows[2].m_bExists, 0);  // the index 2 slot stays a gap
    EXPECT_EQ(p.exists[1][2], 1);     // while the flag table goes by the code
}

TEST(CatalogueReader, SimplifiedRowsGoToGroupFourteenWithFGaps) {
    const Parsed p = Parse({"00-00 X@0$0*X", "#G0", "F00 Y@1$1*Y", "F05 Z@5$5*Z", "#简易参数群组"});
    ASSERT_EQ(p.groups.size(), 2u);  // the vector position counts "#" lines
    const auto& rows = p.groups[1].m_rows;
    ASSERT_EQ(rows.size(), 6u);
    EXPECT_EQ(rows[1].m_strCode, "F01");
    EXPECT_EQ(rows[4].m_strCode, "F04");
    EXPECT_EQ(p.exists[kSimplifiedGroup][5], 1);
    EXPECT_EQ(p.exists[kSimplifiedGroup][4], 0);
}

TEST(CatalogueReader, GroupEndsAtAnyHashAndTrailingRowsAreDropped) {
    const Parsed p = Parse({"00-00 A@1$1*A", "ignored in front#Name one", "01-00 B@1$1*B", "#Second#x",
                            "02-00 C@1$1*C"});
    ASSERT_EQ(p.groups.size(), 2u);
    EXPECT_EQ(p.groups[0].m_strName, "Name one");
    EXPECT_EQ(p.groups[1].m_strName, "Second#x");  // the name starts behind the first "#"
    EXPECT_EQ(p.exists[2][0], 1);                   // the flag was set, but the row is lost
}

TEST(CatalogueReader, RowSplitsAtFirstSeparatorsAndToleratesMissingOnes) {
    ParamRow r = SplitCatalogueRow("00-11 Base frequency@50.00$60.00*Base frequency (Hz)*x");
    EXPECT_EQ(r.m_strCode, "00-11 Base frequency");
    EXPECT_EQ(r.m_strDefault, "50.00");
    EXPECT_EQ(r.m_strSetValue, "60.00");
    EXPECT_EQ(r.m_strName, "Base frequency (Hz)*x");

    // No separators at all: every field is what the text operations give, nothing crashes.
    r = SplitCatalogueRow("00-01 plain");
    EXPECT_TRUE(r.m_strCode.isEmpty());
    EXPECT_EQ(r.m_bExists, 1);
    r = SplitCatalogueRow("");
    EXPECT_TRUE(r.m_strName.isEmpty());
}

TEST(CatalogueReader, RowOutsideTheFlagTablesIsARangeFailure) {
    for (const QString& bad : {QStringLiteral("99-05@1$1*x"), QStringLiteral("15-00@1$1*x"),
                               QStringLiteral("F-1 x@1$1*x")}) {
        try {
            Parse({bad, "#G"});
            ADD_FAILURE() << "no failure for " << bad.toStdString();
        } catch (const std::out_of_range& e) {
            EXPECT_STREQ(e.what(), "invalid vector<T> subscript");
        }
    }
}

TEST(InitialTableReader, RecordsValuesAndTheEndLine) {
    const auto table = ParseInitialTable({"Motor current:1.0,2.0,,3.0", "k:a,b,", "x:y:1,2",
                                          QStringLiteral("n:a") + QChar(0) + "b", "   END",
                                          "after:1"});
    ASSERT_EQ(table.size(), 4u);  // "END" behind blanks still ends the table
    EXPECT_EQ(table[0].m_strKey, "Motor current");
    EXPECT_EQ(table[0].m_values, (std::vector<QString>{"1.0", "2.0", "", "3.0"}));
    EXPECT_EQ(table[1].m_values, (std::vector<QString>{"a", "b"}));  // no empty value behind a last comma
    EXPECT_EQ(table[2].m_strKey, "y");                              // a second colon replaces the key
    EXPECT_EQ(table[2].m_values, (std::vector<QString>{"1", "2"}));
    EXPECT_EQ(table[3].m_values, (std::vector<QString>{"ab"}));     // NUL is skipped
}

TEST(MotorListReader, CodeIsFiveCharactersAndNameFollowsOneSeparator) {
    const auto list = ParseMotorList({"  02-00 Motor rated current", "02-01\tMotor no-load current"});
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].m_strCode, "02-00");
    EXPECT_EQ(list[0].m_strName, "Motor rated current");
    EXPECT_EQ(list[1].m_strName, "Motor no-load current");
}
