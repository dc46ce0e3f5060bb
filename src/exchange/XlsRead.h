#pragma once
// Reads a legacy .xls workbook (BIFF) into sheets of text cells through freexl. freexl can't
// see defined names, so the workbook it gives has none: the importers find a sheet by its name
// and the header row by its content. freexl runs in a child process, so a crafted file that
// upsets it is reported as damaged instead of taking the program down (POSIX; Windows would need
// another way to isolate it).

#include "exchange/Workbook.h"

#include <QString>
#include <optional>

namespace quillon {

std::optional<Workbook> ReadXls(const QString& path, QString& error);

}  // namespace quillon
