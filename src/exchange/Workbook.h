#pragma once
// A workbook as the import and export see it: sheets of text cells and the defined names over
// ranges of them. Every cell is text; a number read from a file becomes its shortest text.

#include <QString>
#include <vector>

namespace quillon {

struct WorkSheet {
    QString name;
    std::vector<std::vector<QString>> rows;  // rows[row][column], both from 0

    // The cell's text, empty when the sheet has no such cell.
    QString Cell(int row, int column) const;
    void SetCell(int row, int column, const QString& text);
};

// A name over a rectangle of one sheet; rows and columns from 0.
struct DefinedName {
    QString name;
    QString sheet;
    int firstRow = 0;
    int firstColumn = 0;
    int lastRow = 0;
    int lastColumn = 0;
};

struct Workbook {
    std::vector<WorkSheet> sheets;
    std::vector<DefinedName> names;

    const WorkSheet* FindSheet(const QString& name) const;
    const DefinedName* FindName(const QString& name) const;
    // Adds a sheet and a defined name of the same name over `columns` columns of all its rows.
    WorkSheet& AddNamedSheet(const QString& name, int columns);
    // Sets the defined name of `sheet` to cover its rows (call when the sheet is filled).
    void CoverSheet(const QString& name);
};

// "A1"-style column letters of a column from 0: 0 -> "A", 26 -> "AA".
QString ColumnLetters(int column);

// Parses "Sheet!$A$1:$C$9" or "'My sheet'!A1:C9" (a leading "=" is allowed) into `name`'s sheet
// and rectangle; false when the text is no such reference.
bool ParseRangeReference(const QString& text, DefinedName& name);

}  // namespace quillon
