#pragma once
// The printed compare result. Its positions were set for a printer of 300 dots an inch, so the
// pages are laid out in that fixed unit, y downwards from the top of the printable area, and come
// out the same on any printer or PDF file.

#include "exchange/CompareRows.h"
#include "exchange/PrintPage.h"

namespace quillon {

inline constexpr double kComparePrintUnitMm = 25.4 / 300.0;
inline constexpr PrintFont kCompareFont{"Tahoma", 40, 0, 400};
inline constexpr int kCompareRowsPerPage = 40;  // from y 310 in steps of 75 until 3310
inline constexpr const char* kComparePrintTitle = "Parameter Setting List";
inline constexpr const char* kComparePrintDocName = "pdoc";

int ComparePageCount(const CompareResult& result);  // at least 1
PrintPage LayoutComparePage(const CompareResult& result, int mode, PageSize size, int page);

}  // namespace quillon
