#pragma once
// Writes a workbook as .xlsx. Every cell is written as a string, so "00001", "0000" and "50.00"
// arrive as they stand and no program turns them into numbers.

#include "exchange/Workbook.h"

#include <QString>

namespace quillon {

// Writes through a temporary file beside `path` and renames it over `path` only when the whole
// workbook was written. False with the reason in `error`.
bool WriteXlsx(const Workbook& book, const QString& path, QString& error);

}  // namespace quillon
