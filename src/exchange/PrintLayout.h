#pragma once
// The printed parameter list: which line of which page every group heading, column head and row
// takes, and where each text of a page stands. Units are tenths of a millimetre with y rising
// upwards from the top edge of the printable area, so every y on a page is negative.
//
// A running line number r goes over the groups in the order of the group vector: per group its
// heading, the column heads below it, then each row the row-exists table has (gap rows take no
// line). Page 1 holds lines 0 to 29, page n above 1 lines 35n-40 to 35n-6.

#include "exchange/PrintPage.h"
#include "params/M330Doc.h"

#include <QDateTime>
#include <vector>

namespace quillon {

inline constexpr PrintFont kTitleFont{"Courier New", 48, 39, 700};
inline constexpr PrintFont kTextFont{"Arial", 36, 20, 500};
inline constexpr PrintFont kRowFont{"Courier New", 30, 16, 400};

inline constexpr int kFirstPageLines = 30;
inline constexpr int kLaterPageLines = 35;
inline constexpr const char* kMakerLine = "Ostrand Drives Ltd.";

struct ListLine {
    enum Kind { Heading, ColumnHeads, Row };
    Kind kind;
    int group;
    int row;     // the row's index for Row, else -1
    int number;  // the running line number r
};

// Every line of the list in order. A heading that would be the last line of a page moves to the
// next page with its column heads.
std::vector<ListLine> ListLines(const CM330Doc& doc);

int ListPageOf(int number);        // 1-based
int ListLineOnPage(int number);    // k, from 0 at the page's top
int ListPitch(int page, int pageHeight);
int ListTop(int page);
int ListPageCount(const std::vector<ListLine>& lines);  // at least 1: head and foot always print

// The two left lines of the foot, made when printing starts.
struct PrintFoot {
    QString line1;
    QString line2;
};
PrintFoot MakePrintFoot(const QDateTime& now);

// Page `page` (1-based) of the list for a printable area of `size`.
PrintPage LayoutListPage(const CM330Doc& doc, const std::vector<ListLine>& lines, PageSize size,
                         const PrintFoot& foot, int page);

// The title's width by the rule of 20 units per character, a wide (CJK) character counting two,
// as the face of the title is laid out for; the title is centred by it.
int TitleCells(const QString& text);

}  // namespace quillon
