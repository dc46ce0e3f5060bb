#pragma once
// The parameter file as a workbook: one sheet per group, "Group" and the group's position in
// the group vector, each with a defined name of the same name over its range. Row 1 carries the
// column names, row 2 the model ("Model:<name>", on Group0), data begins in row 3: code, factory
// setting, set value, every cell a string. A row the row-exists table lacks takes no sheet row.

#include "exchange/ParamCsv.h"
#include "exchange/Workbook.h"
#include "params/M330Doc.h"

#include <QString>

namespace quillon {

Workbook BuildParamWorkbook(const CM330Doc& doc);

// The model name the workbook carries; empty when it carries none.
QString WorkbookModelName(const Workbook& book);

// Copies factory settings and set values of every group's sheet into the document; its model
// stays. ByPosition takes a record's row from the two characters at position 3 of its code
// ("00-05" is row 5) and takes no more records than the group has rows that exist; ByCode finds
// the row by its code. A sheet that is missing says so and ends the import with false, the
// groups before it changed; success says "Import success.". Raises the range failure for a code
// whose row number is beyond its group. The document is left modified.
bool ImportParamWorkbook(CM330Doc& doc, const Workbook& book,
                         ImportMatch match = ImportMatch::ByPosition);

// Where the records of a sheet begin: the header row of the range `name` (its defined name when
// the workbook has one, else the first row holding `firstHeader`), and the column of each of
// `headers`. False when the sheet has no such header.
struct SheetTable {
    const WorkSheet* sheet = nullptr;
    int headerRow = 0;
    int lastRow = 0;  // the last row of the range that holds a cell
    std::vector<int> columns;
};
bool FindSheetTable(const Workbook& book, const QString& name, const QStringList& headers,
                    SheetTable& table);

}  // namespace quillon
