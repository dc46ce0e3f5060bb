#include "exchange/PrintLayout.h"

#include "params/ParamNames.h"

namespace quillon {
namespace {

constexpr int kPageOneTop = 400;
constexpr int kLaterTop = 150;
constexpr int kTitleY = -120;
constexpr int kHeadRuleY = -200;
constexpr int kDepartmentY = -280;
constexpr int kTitleUnitsPerCell = 20;

bool IsLastOnPage(int number) {
    return number == kFirstPageLines - 1 ||
           (number >= kFirstPageLines &&
            (number - kFirstPageLines) % kLaterPageLines == kLaterPageLines - 1);
}

int LineY(int number, int pageHeight) {
    const int page = ListPageOf(number);
    return -(ListPitch(page, pageHeight) * ListLineOnPage(number) + ListTop(page));
}

}  // namespace

std::vector<ListLine> ListLines(const CM330Doc& doc) {
    std::vector<ListLine> lines;
    int r = 0;
    for (int g = 0; g < static_cast<int>(doc.m_groups.size()); ++g) {
        // A heading alone at the foot of a page would leave its rows without their heads.
        if (IsLastOnPage(r)) ++r;
        lines.push_back({ListLine::Heading, g, -1, r++});
        lines.push_back({ListLine::ColumnHeads, g, -1, r++});
        const auto& rows = doc.m_groups[static_cast<std::size_t>(g)].m_rows;
        for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
            const bool exists = g < kGroupCount && i < kRowsPerGroup && doc.m_rowExists[g][i];
            if (exists) lines.push_back({ListLine::Row, g, i, r++});
        }
    }
    return lines;
}

int ListPageOf(int number) {
    return number < kFirstPageLines ? 1 : (number + 40) / kLaterPageLines;
}

int ListLineOnPage(int number) {
    const int page = ListPageOf(number);
    return page == 1 ? number : number - (kLaterPageLines * page - 40);
}

int ListPitch(int page, int pageHeight) {
    return page == 1 ? (pageHeight - 50) / 40 : (pageHeight - 50) / 42;
}

int ListTop(int page) { return page == 1 ? kPageOneTop : kLaterTop; }

int ListPageCount(const std::vector<ListLine>& lines) {
    return lines.empty() ? 1 : ListPageOf(lines.back().number);
}

PrintFoot MakePrintFoot(const QDateTime& now) {
    return {QStringLiteral("Date: ") + now.toString(QStringLiteral("yyyy-MM-dd")),
            QStringLiteral("Time: ") + now.toString(QStringLiteral("HH:mm:ss"))};
}

int TitleCells(const QString& text) {
    int cells = 0;
    for (const QChar c : text) cells += c.unicode() >= 0x1100 ? 2 : 1;
    return cells;
}

PrintPage LayoutListPage(const CM330Doc& doc, const std::vector<ListLine>& lines, PageSize size,
                         const PrintFoot& foot, int page) {
    const int w = size.width;
    const int h = size.height;
    PrintPage out;
    auto text = [&out](const PrintFont& font, int x, int y, const QString& s) {
        out.texts.push_back({font, x, y, s});
    };
    if (page == 1) {
        const PrintTitles& t = doc.m_printTitles;
        out.rules.push_back({0, kHeadRuleY, w, kHeadRuleY});
        text(kTitleFont, (w - kTitleUnitsPerCell * TitleCells(t.m_strTitle)) / 2, kTitleY,
             t.m_strTitle);
        text(kTextFont, 50, kDepartmentY, QStringLiteral("Department:") + t.m_strDepartment);
        text(kTextFont, w / 5 * 3, kDepartmentY, QStringLiteral("Name:") + t.m_strName);
    }
    for (const ListLine& line : lines) {
        if (ListPageOf(line.number) != page) continue;
        const int y = LineY(line.number, h);
        switch (line.kind) {
        case ListLine::Heading:
            text(kRowFont, 50, y,
                 QStringLiteral("===== ") + GroupNameOf(doc.GroupAt(line.group).m_strName) +
                     QStringLiteral(" ====="));
            break;
        case ListLine::ColumnHeads:
            // The heads take a line of their own below the group heading, at that line's height:
            // placed at one fixed height below the top of the page they would run into every
            // heading but the page's first.
            text(kRowFont, 50, y, QStringLiteral("Parameter Name"));
            text(kRowFont, w / 10 * 7, y, QStringLiteral("Default"));
            text(kRowFont, w / 20 * 16, y, QStringLiteral("Set Value"));
            break;
        case ListLine::Row: {
            const ParamRow& row = doc.RowAt(line.group, line.row);
            text(kRowFont, 100, y, row.m_strCode);
            text(kRowFont, w / 10 * 7, y, row.m_strDefault);
            text(kRowFont, w / 20 * 17 + 20, y, row.m_strSetValue);
            break;
        }
        }
    }
    // The foot: when the list was printed (date, then time), the page, and who made the drive,
    // in the space between the left lines and the page number.
    text(kTextFont, 50, 200 - h, foot.line1);
    text(kTextFont, 50, 140 - h, foot.line2);
    text(kTextFont, w - 1000, 140 - h, QString::fromLatin1(kMakerLine));
    text(kTextFont, w - 500, 140 - h, QStringLiteral("Page:"));
    text(kTextFont, w - 350, 140 - h, QString::asprintf("%d", page));
    return out;
}

}  // namespace quillon
