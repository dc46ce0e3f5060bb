// The printed parameter list: lines, pages, pitches, head and foot; and the PDF the command-line
// tool makes of it, read back with pdftotext.

#include "base/Globals.h"
#include "exchange/PrintLayout.h"
#include "params/ProjectFile.h"
#include "support/ProgramRun.h"
#include "support/TestDirs.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace quillon::test {
namespace {

constexpr PageSize kA4{2000, 2870};  // A4 less 5 mm margins, in tenths of a millimetre

SessionState DataSession() {
    g_strAppDir = DataDir();
    SessionState session;
    session.m_strAppDir = DataDir();
    return session;
}

struct Project {
    Project() { doc.OnNewDocument(); }
    SessionState session = DataSession();
    CM330Doc doc{session};
};

// The text at (x, y) on a page, "<none>" if nothing stands there.
QString At(const PrintPage& page, int x, int y) {
    for (const PrintText& t : page.texts)
        if (t.x == x && t.y == y) return t.text;
    return QStringLiteral("<none>");
}

const ListLine& Numbered(const std::vector<ListLine>& lines, int number) {
    for (const ListLine& l : lines)
        if (l.number == number) return l;
    throw std::runtime_error("no such line");
}

TEST(PrintLayout, PageOneEndsAtLine29AndPageTwoTakesItsOwnPitch) {
    Project p;
    p.doc.m_printTitles.m_strTitle = QStringLiteral("ABC");
    const std::vector<ListLine> lines = ListLines(p.doc);
    const PrintFoot foot{QStringLiteral("Date: x"), QStringLiteral("Time: y")};
    const PrintPage one = LayoutListPage(p.doc, lines, kA4, foot, 1);
    const PrintPage two = LayoutListPage(p.doc, lines, kA4, foot, 2);

    // Group 00 opens page 1 under the head: heading, column heads, rows 00-00 on.
    EXPECT_TRUE(At(one, 50, -400).contains(p.doc.GroupAt(0).m_strName));
    EXPECT_EQ(At(one, 50, -470), "Parameter Name");  // pitch (2870 - 50) / 40 = 70
    EXPECT_EQ(At(one, 1400, -470), "Default");
    EXPECT_EQ(At(one, 1600, -470), "Set Value");
    EXPECT_EQ(At(one, 100, -540), p.doc.RowAt(0, 0).m_strCode);
    EXPECT_EQ(At(one, 1720, -540), p.doc.RowAt(0, 0).m_strSetValue);
    const ListLine& last = Numbered(lines, 29);
    ASSERT_EQ(last.kind, ListLine::Row);
    EXPECT_EQ(At(one, 100, -(70 * 29 + 400)), p.doc.RowAt(last.group, last.row).m_strCode);
    // Page 2 from y -150 with a pitch of (2870 - 50) / 42 = 67.
    const ListLine& first = Numbered(lines, 30);
    const ListLine& second = Numbered(lines, 31);
    ASSERT_EQ(first.kind, ListLine::Row);
    EXPECT_EQ(At(two, 100, -150), p.doc.RowAt(first.group, first.row).m_strCode);
    EXPECT_EQ(At(two, 100, -217), p.doc.RowAt(second.group, second.row).m_strCode);
    EXPECT_EQ(At(one, 100, -(70 * 30 + 400)), "<none>");

    // Head on page 1 only: the title centred by 20 units a character, department and name.
    EXPECT_EQ(At(one, (2000 - 60) / 2, -120), "ABC");
    EXPECT_EQ(At(one, 50, -280), "Department:");
    EXPECT_EQ(At(one, 1200, -280), "Name:");
    EXPECT_EQ(one.rules.size(), 1u);
    EXPECT_TRUE(two.rules.empty());
    EXPECT_EQ(At(two, (2000 - 60) / 2, -120), "<none>");
    EXPECT_EQ(TitleCells(QStringLiteral("参数A")), 5);
    // The foot of every page.
    for (const auto& [page, n] : {std::pair{&one, "1"}, std::pair{&two, "2"}}) {
        EXPECT_EQ(At(*page, 50, 200 - 2870), "Date: x");
        EXPECT_EQ(At(*page, 50, 140 - 2870), "Time: y");
        EXPECT_EQ(At(*page, 1500, 140 - 2870), "Page:");
        EXPECT_EQ(At(*page, 1650, 140 - 2870), n);
        EXPECT_EQ(At(*page, 1000, 140 - 2870), kMakerLine);
    }
    EXPECT_TRUE(MakePrintFoot(QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7))).line2.contains("05:06:07"));
}

TEST(PrintLayout, GapRowsTakeNoLineAndAHeadingNeverEndsAPage) {
    Project p;
    // Group 00 fills lines 0..22; group 01 with five rows ends exactly on line 29.
    for (int r = 5; r < kRowsPerGroup; ++r) p.doc.m_rowExists[1][r] = 0;
    std::vector<ListLine> lines = ListLines(p.doc);
    EXPECT_EQ(Numbered(lines, 23).kind, ListLine::Heading);
    EXPECT_EQ(Numbered(lines, 29).row, 4);
    EXPECT_EQ(Numbered(lines, 30).kind, ListLine::Heading);
    EXPECT_EQ(Numbered(lines, 30).group, 2);
    // With four rows the next heading would be the last line of page 1: it moves to page 2.
    p.doc.m_rowExists[1][4] = 0;
    lines = ListLines(p.doc);
    EXPECT_EQ(Numbered(lines, 28).row, 3);
    EXPECT_THROW(Numbered(lines, 29), std::runtime_error);
    EXPECT_EQ(Numbered(lines, 30).group, 2);
    EXPECT_EQ(ListPageOf(64), 2);
    EXPECT_EQ(ListPageOf(65), 3);
    EXPECT_EQ(ListLineOnPage(65), 0);
}

TEST(PrintLayout, ThePdfHoldsTitleHeadingsAndRowsWhereTheLayoutPutsThem) {
    QTemporaryDir dir;
    Project p;
    p.doc.m_printTitles.m_strTitle = QStringLiteral("Pump 7 settings");
    const QString qpj = dir.filePath("p.qpj");
    const QString pdf = dir.filePath("p.pdf");
    QString error;
    ASSERT_TRUE(SaveProjectDocument(p.doc, qpj, error));
    const ProgramRun print = RunProgram(QStringLiteral(QUILLON_CLI_PATH), {"print", qpj, "-o", pdf});
    ASSERT_EQ(print.code, 0) << print.err.toStdString();

    const std::vector<ListLine> lines = ListLines(p.doc);
    const int pages = ListPageCount(lines);
    auto pageText = [&](int page) {
        const QString n = QString::number(page);
        const ProgramRun r = RunProgram(QStringLiteral("pdftotext"),
                                        {"-f", n, "-l", n, "-layout", pdf, "-"});
        EXPECT_EQ(r.code, 0) << r.err.toStdString();
        return r.out;
    };
    QString all;
    for (int page = 1; page <= pages; ++page) all += pageText(page);
    EXPECT_TRUE(pageText(1).contains("Pump 7 settings"));
    EXPECT_TRUE(pageText(pages).simplified().contains(QStringLiteral("Page: %1").arg(pages)));
    EXPECT_NE(RunProgram(QStringLiteral("pdftotext"),
                         {"-f", QString::number(pages + 1), "-l", QString::number(pages + 1), pdf, "-"})
                  .code, 0) << "more pages than the layout";
    for (const ParamGroup& g : p.doc.m_groups) EXPECT_TRUE(all.contains(g.m_strName)) << g.m_strName.toStdString();
    // The first row of page 3 stands on page 3, whole, with its name from the seventh character.
    const ListLine& row = Numbered(lines, 65);
    ASSERT_EQ(row.kind, ListLine::Row);
    const QString code = p.doc.RowAt(row.group, row.row).m_strCode;
    EXPECT_TRUE(pageText(3).contains(code)) << code.toStdString();
    EXPECT_FALSE(pageText(2).contains(code));
}

}  // namespace
}  // namespace quillon::test
