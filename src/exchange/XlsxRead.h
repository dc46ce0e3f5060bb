#pragma once
// Reads an .xlsx workbook (an Office Open XML zip package) into sheets of text cells with its
// defined names: shared strings (plain and rich-text runs), inline strings, formula string
// results, booleans and numbers. The package is read from memory and never trusted: a damaged
// zip, a missing part or malformed XML gives nullopt and the reason.

#include "exchange/Workbook.h"

#include <QByteArrayView>
#include <QString>
#include <optional>

namespace quillon {

std::optional<Workbook> ReadXlsx(QByteArrayView package, QString& error);

}  // namespace quillon
