#include "exchange/Workbook.h"

#include <QRegularExpression>

namespace quillon {

QString WorkSheet::Cell(int row, int column) const {
    if (row < 0 || column < 0 || static_cast<size_t>(row) >= rows.size()) return {};
    const auto& cells = rows[static_cast<size_t>(row)];
    return static_cast<size_t>(column) < cells.size() ? cells[static_cast<size_t>(column)]
                                                      : QString();
}

void WorkSheet::SetCell(int row, int column, const QString& text) {
    if (row < 0 || column < 0) return;
    if (rows.size() <= static_cast<size_t>(row)) rows.resize(static_cast<size_t>(row) + 1);
    auto& cells = rows[static_cast<size_t>(row)];
    if (cells.size() <= static_cast<size_t>(column)) cells.resize(static_cast<size_t>(column) + 1);
    cells[static_cast<size_t>(column)] = text;
}

const WorkSheet* Workbook::FindSheet(const QString& name) const {
    for (const WorkSheet& sheet : sheets)
        if (sheet.name == name) return &sheet;
    return nullptr;
}

const DefinedName* Workbook::FindName(const QString& name) const {
    for (const DefinedName& n : names)
        if (n.name.compare(name, Qt::CaseInsensitive) == 0) return &n;
    return nullptr;
}

WorkSheet& Workbook::AddNamedSheet(const QString& name, int columns) {
    sheets.push_back(WorkSheet{name, {}});
    names.push_back(DefinedName{name, name, 0, 0, 0, columns - 1});
    return sheets.back();
}

void Workbook::CoverSheet(const QString& name) {
    const WorkSheet* sheet = FindSheet(name);
    for (DefinedName& n : names)
        if (sheet && n.name == name)
            n.lastRow = std::max(0, static_cast<int>(sheet->rows.size()) - 1);
}

QString ColumnLetters(int column) {
    QString letters;
    for (int c = column + 1; c > 0; c = (c - 1) / 26)
        letters.prepend(QChar(u'A' + (c - 1) % 26));
    return letters;
}

namespace {
// Column letters and row digits of a cell reference, from 0; false when it is none.
bool ParseCell(const QString& text, int& row, int& column) {
    static const QRegularExpression cell(QStringLiteral("^\\$?([A-Za-z]{1,3})\\$?([0-9]{1,7})$"));
    const auto m = cell.match(text);
    if (!m.hasMatch()) return false;
    column = 0;
    for (const QChar c : m.captured(1).toUpper()) column = column * 26 + (c.unicode() - u'A' + 1);
    --column;
    row = m.captured(2).toInt() - 1;
    return row >= 0;
}
}  // namespace

bool ParseRangeReference(const QString& text, DefinedName& name) {
    QString ref = text.trimmed();
    if (ref.startsWith(u'=')) ref.remove(0, 1);
    const qsizetype bang = ref.lastIndexOf(u'!');
    if (bang <= 0) return false;
    QString sheet = ref.left(bang);
    if (sheet.size() >= 2 && sheet.startsWith(u'\'') && sheet.endsWith(u'\''))
        sheet = sheet.mid(1, sheet.size() - 2).replace(QLatin1String("''"), QLatin1String("'"));
    const QStringList corners = ref.mid(bang + 1).split(u':');
    if (corners.size() > 2) return false;
    if (!ParseCell(corners[0], name.firstRow, name.firstColumn)) return false;
    if (!ParseCell(corners.back(), name.lastRow, name.lastColumn)) return false;
    name.sheet = sheet;
    return true;
}

}  // namespace quillon
