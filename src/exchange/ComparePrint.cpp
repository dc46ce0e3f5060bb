#include "exchange/ComparePrint.h"

namespace quillon {
namespace {

constexpr int kTitleY = 60;
constexpr int kHeadY = 200;
constexpr int kFirstRowY = 310;
constexpr int kRowPitch = 75;
constexpr int kFootY = 3330;

int RowCount(const CompareResult& result) {
    int n = 0;
    for (const ParamGroup& g : result) n += static_cast<int>(g.m_rows.size());
    return n;
}

}  // namespace

int ComparePageCount(const CompareResult& result) {
    const int rows = RowCount(result);
    return rows == 0 ? 1 : (rows + kCompareRowsPerPage - 1) / kCompareRowsPerPage;
}

PrintPage LayoutComparePage(const CompareResult& result, int mode, PageSize size, int page) {
    const CompareColumns& c = ColumnsOf(mode);
    const int w = size.width;
    PrintPage out;
    out.unitMm = kComparePrintUnitMm;
    out.yUp = false;
    auto text = [&out](int x, int y, const QString& s, bool centred = false) {
        out.texts.push_back({kCompareFont, x, y, s, centred});
    };
    text(w / 2 + 150, kTitleY, QString::fromLatin1(kComparePrintTitle), true);
    text(500, kHeadY, QStringLiteral("Parameter Name"));
    text(w * 7 / 10 + 150, kHeadY, QString::fromLatin1(c.leftHeading));
    text(w * 10 / 11 + 80, kHeadY, QString::fromLatin1(c.rightHeading));

    const int first = (page - 1) * kCompareRowsPerPage;
    int index = 0;
    for (const ParamGroup& group : result) {
        for (const ParamRow& row : group.m_rows) {
            const int k = index++ - first;
            if (k < 0 || k >= kCompareRowsPerPage) continue;
            const int y = kFirstRowY + kRowPitch * k;
            text(160, y, row.m_strCode);
            text(w * 7 / 10 + 130, y, row.*c.left);
            text(w * 10 / 11 + 20, y, row.*c.right);
        }
    }
    text(w * 6 / 7 + 150, kFootY, QString::asprintf("Page: %d", page));
    return out;
}

}  // namespace quillon
