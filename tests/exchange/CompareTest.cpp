// Compare: the byte-exact comparison under each mode, the drive read it needs, the saved text
// and the printed pages.

#include "transfer/TransferFixture.h"

#include "exchange/CompareCommand.h"
#include "exchange/ComparePrint.h"

#include "params/ProjectFile.h"
#include "support/ProgramRun.h"

#include <QTemporaryDir>
#include <set>

namespace quillon::test {
namespace {

class RecordingCompareWindows final : public ICompareWindows {
public:
    std::optional<int> ChooseCompareMode(bool isLinked) override {
        linked = isLinked;
        return mode;
    }
    void ShowCompare(int shownMode, const CompareResult& r) override {
        ++shows;
        this->shownMode = shownMode;
        result = r;
    }
    std::optional<int> mode;
    bool linked = false;
    int shows = 0;
    int shownMode = -1;
    CompareResult result;
};

using RowSet = std::set<std::string>;  // whole code texts

RowSet Codes(const CompareResult& result) {
    RowSet codes;
    for (const ParamGroup& g : result)
        for (const ParamRow& r : g.m_rows) codes.insert(r.m_strCode.toStdString());
    return codes;
}

class CompareTest : public TransferTest {
protected:
    void SetUp() override {
        OpenBus();
        NewProject();
    }
    RecordingCompareWindows m_compare;
    CCompareCommand m_command{m_session, m_windows, m_compare};
};

TEST_F(CompareTest, DefaultAgainstSetComparesTextsByteForByte) {
    Row(0, 11).m_strSetValue = QStringLiteral("50.0");  // the default is "50.00"
    const CompareResult result = CompareRows(*m_doc, kCompareDefaultSet);
    // Only group 00 has a difference; the other groups stand nowhere.
    ASSERT_EQ(result.size(), 1u);
    EXPECT_EQ(result[0].m_strName, m_doc->GroupAt(0).m_strName);
    EXPECT_EQ(Codes(result), RowSet{Row(0, 11).m_strCode.toStdString()});

    // Without a link only mode 0 can be had, and nothing is sent.
    m_session.m_bOnline = 0;
    m_compare.mode = kCompareSetRead;
    ClearSent();
    ASSERT_TRUE(m_command.OnCompare());
    EXPECT_FALSE(m_compare.linked);
    EXPECT_EQ(m_compare.shownMode, kCompareDefaultSet);
    EXPECT_TRUE(SentSince().empty());
    EXPECT_TRUE(m_prompt.Texts().isEmpty());
}

TEST_F(CompareTest, SetAgainstReadReadsTheDriveAndListsGapRowsToo) {
    SetDriveValue(0x000B, 4000);  // 00-11 reads "40.00"
    m_compare.mode = kCompareSetRead;
    m_prompt.Station(1);
    ClearSent();
    ASSERT_TRUE(m_command.OnCompare());
    EXPECT_TRUE(m_compare.linked);
    EXPECT_EQ(ReadStarts().size(), 26u);  // the fifteen group routines, nothing else
    EXPECT_EQ(m_windows.progress.title, "Read Inverter function parameter...,");
    EXPECT_EQ(m_windows.progress.positions.back(), 15);
    EXPECT_FALSE(m_windows.progress.visible);
    EXPECT_EQ(Row(0, 11).m_strSetValue, "50.00");  // a compare leaves the project alone
    EXPECT_EQ(Row(0, 11).m_strReadValue, "40.00");

    // A gap row keeps "0" as its set value and is never read: it differs like any other row. A
    // row the drive holds as the project does stands nowhere.
    auto listed = [&](int g, int r) {
        return Codes(m_compare.result).count(Row(g, r).m_strCode.toStdString()) == 1;
    };
    int gaps = 0;
    for (int g = 0; g < kGroupCount; ++g)
        for (int r = 0; r < static_cast<int>(m_doc->GroupAt(g).m_rows.size()); ++r)
            if (!Row(g, r).m_bExists) {
                ++gaps;
                EXPECT_TRUE(listed(g, r)) << Row(g, r).m_strCode.toStdString();
            }
    EXPECT_GT(gaps, 0);
    EXPECT_TRUE(listed(0, 11));
    EXPECT_FALSE(listed(0, 12));

    // Default against read: the same read, the defaults on the left.
    m_compare.mode = kCompareDefaultRead;
    m_prompt.Station(1);
    ASSERT_TRUE(m_command.OnCompare());
    EXPECT_TRUE(listed(0, 11) && listed(2, 7));
    EXPECT_TRUE(CompareText(m_compare.result, m_compare.shownMode).contains("\t50.00\t40.00\r\n"));
}

TEST_F(CompareTest, AFailedReadShowsItsTextAndNoWindow) {
    SetIntercept([](const Frame& request) -> std::optional<Frame> {
        if (RequestRegister(request) == 0x0511) return ExceptionReply(request, 2);
        return std::nullopt;
    });
    m_compare.mode = kCompareSetRead;
    m_prompt.Station(1);
    EXPECT_FALSE(m_command.OnCompare());
    EXPECT_EQ(m_compare.shows, 0);
    ASSERT_EQ(m_prompt.Messages().size(), 1);
    EXPECT_EQ(m_prompt.Messages()[0], m_session.m_strLastError);
    EXPECT_FALSE(m_windows.progress.visible);
    EXPECT_EQ(m_session.m_bReading, 0);

    // Cancel at the station: no read at all.
    m_prompt.Station(std::nullopt);
    ClearSent();
    EXPECT_FALSE(m_command.OnCompare());
    EXPECT_TRUE(SentSince().empty());
}

TEST(CompareText, GroupTitlesThenTabbedRowsWithCrLf) {
    ParamRow a{QStringLiteral("00-11 Initial frequency"), QStringLiteral("50.00"),
               QStringLiteral("50.0"), QStringLiteral("49.00"), QString(), 1};
    ParamRow gap{QStringLiteral("F04"), QStringLiteral("0"), QStringLiteral("0"), QString(),
                 QString(), 0};
    const CompareResult result{{QStringLiteral("群组 00"), {a}}, {QStringLiteral("简易"), {gap}}};
    EXPECT_EQ(CompareText(result, kCompareSetRead),
              QStringLiteral("群组 00\r\n00-11 Initial frequency\t50.0\t49.00\r\n"
                             "简易\r\nF04\t0\t\r\n")
                  .toUtf8());
    EXPECT_EQ(CompareText(result, kCompareDefaultSet).split('\n')[1], "00-11 Initial frequency\t50.00\t50.0\r");
    EXPECT_TRUE(CompareText({}, kCompareSetRead).isEmpty());

    // Printed: forty rows a page from y 310 in steps of 75, headings of the mode.
    const CompareResult many{{QStringLiteral("G"), std::vector<ParamRow>(41, a)}};
    ASSERT_EQ(ComparePageCount(many), 2);
    const PageSize size{2400, 3400};
    const PrintPage one = LayoutComparePage(many, kCompareDefaultRead, size, 1);
    const PrintPage two = LayoutComparePage(many, kCompareDefaultRead, size, 2);
    auto at = [](const PrintPage& p, int x, int y) {
        for (const PrintText& t : p.texts)
            if (t.x == x && t.y == y) return t.text;
        return QStringLiteral("<none>");
    };
    EXPECT_EQ(at(one, 2400 * 7 / 10 + 150, 200), "Default");
    EXPECT_EQ(at(one, 2400 * 10 / 11 + 80, 200), "Read Value");
    EXPECT_EQ(at(one, 160, 310 + 75 * 39), a.m_strCode);
    EXPECT_EQ(at(one, 160, 310 + 75 * 40), "<none>");
    EXPECT_EQ(at(two, 160, 310), a.m_strCode);
    EXPECT_EQ(at(two, 2400 * 10 / 11 + 20, 310), "49.00");
    EXPECT_EQ(at(two, 160, 385), "<none>");
    EXPECT_EQ(at(two, 2400 * 6 / 7 + 150, 3330), "Page: 2");
}

TEST_F(CompareTest, CliPrintsTheSavedTextAndFailsOnlyForTheLink) {
    QTemporaryDir dir;
    const QString qpj = dir.filePath("p.qpj");
    QString error;
    ASSERT_TRUE(SaveProjectDocument(*m_doc, qpj, error));
    const QString cli = QStringLiteral(QUILLON_CLI_PATH);
    const ProgramRun same = RunProgram(cli, {"compare", qpj});
    EXPECT_EQ(same.code, 0) << same.err.toStdString();
    EXPECT_TRUE(same.out.isEmpty());
    Row(0, 12).m_strSetValue = QStringLiteral("45.00");
    ASSERT_TRUE(SaveProjectDocument(*m_doc, qpj, error));
    const ProgramRun differs = RunProgram(cli, {"compare", qpj, "--mode", "0"});
    EXPECT_EQ(differs.code, 0);
    EXPECT_EQ(differs.out.toUtf8(), CompareText(CompareRows(*m_doc, 0), 0));
    EXPECT_TRUE(differs.out.startsWith(QStringLiteral("群组 00: 基本功能\r\n")));
    // The group names in English, the rest as it was; a language the program lacks is refused.
    const ProgramRun english = RunProgram(cli, {"--lang", "en", "compare", qpj, "--mode", "0"});
    EXPECT_EQ(english.code, 0) << english.err.toStdString();
    EXPECT_EQ(english.out, QString(differs.out).replace(QStringLiteral("群组 00: 基本功能"),
                                                        QStringLiteral("Group 00: Basic functions")));
    EXPECT_EQ(RunProgram(cli, {"compare", qpj, "--mode", "0", "--lang", "fr"}).code, 2);
    // Nobody listens on port 1 of loopback.
    const ProgramRun noLink = RunProgram(cli, {"compare", qpj, "--tcp", "127.0.0.1:1", "--station", "1"});
    EXPECT_EQ(noLink.code, 1);
    EXPECT_EQ(RunProgram(cli, {"compare", qpj, "--mode", "2"}).code, 2);
}

}  // namespace
}  // namespace quillon::test
