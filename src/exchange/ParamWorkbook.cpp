#include "exchange/ParamWorkbook.h"

#include "base/Prompt.h"
#include "base/TextConv.h"
#include "exchange/CodeIndex.h"
#include "exchange/ExchangeTexts.h"

#include <algorithm>

namespace quillon {
namespace {

constexpr int kFirstDataRow = 2;  // sheet row 3
constexpr const char* kModelLabel = "Model:";

const QStringList& ColumnNames() {
    static const QStringList names{QStringLiteral("Parameter_Descriptions"),
                                   QStringLiteral("Factory_Setting"),
                                   QStringLiteral("Current_Value")};
    return names;
}

QString SheetName(int group) { return QStringLiteral("Group%1").arg(group); }

int CountExisting(const CM330Doc& doc, int g) {
    int count = 0;
    for (int r = 0; r < kRowsPerGroup; ++r) count += doc.m_rowExists[g][r] ? 1 : 0;
    return count;
}

}  // namespace

Workbook BuildParamWorkbook(const CM330Doc& doc) {
    Workbook book;
    for (size_t g = 0; g < doc.m_groups.size() && g < kGroupCount; ++g) {
        const QString name = SheetName(static_cast<int>(g));
        WorkSheet& sheet = book.AddNamedSheet(name, ColumnNames().size());
        for (int c = 0; c < ColumnNames().size(); ++c) sheet.SetCell(0, c, ColumnNames()[c]);
        if (g == 0) sheet.SetCell(1, 0, QLatin1String(kModelLabel) + doc.Session().m_strModelName);
        int skipped = 0;
        const auto& rows = doc.m_groups[g].m_rows;
        for (size_t r = 0; r < rows.size() && r < kRowsPerGroup; ++r) {
            if (!doc.m_rowExists[g][r]) {
                ++skipped;
                continue;
            }
            const int at = static_cast<int>(r) - skipped + kFirstDataRow;
            sheet.SetCell(at, 0, rows[r].m_strCode);
            sheet.SetCell(at, 1, rows[r].m_strDefault);
            sheet.SetCell(at, 2, rows[r].m_strSetValue);
        }
        book.CoverSheet(name);
    }
    return book;
}

QString WorkbookModelName(const Workbook& book) {
    const WorkSheet* sheet = book.FindSheet(SheetName(0));
    const QString cell = sheet ? sheet->Cell(1, 0) : QString();
    return cell.startsWith(QLatin1String(kModelLabel)) ? cell.mid(int(strlen(kModelLabel)))
                                                       : QString();
}

bool FindSheetTable(const Workbook& book, const QString& name, const QStringList& headers,
                    SheetTable& table) {
    const DefinedName* range = book.FindName(name);
    table.sheet = book.FindSheet(range ? range->sheet : name);
    if (!table.sheet) return false;
    const auto& rows = table.sheet->rows;
    table.headerRow = -1;
    // Rows below the sheet's last filled row hold nothing, whatever the range says.
    table.lastRow = static_cast<int>(rows.size()) - 1;
    if (range) {
        table.headerRow = range->firstRow;
        table.lastRow = std::min(table.lastRow, range->lastRow);
    } else {
        for (int r = 0; r < static_cast<int>(rows.size()) && table.headerRow < 0; ++r)
            for (const QString& cell : rows[static_cast<size_t>(r)])
                if (cell.trimmed().compare(headers.front(), Qt::CaseInsensitive) == 0) table.headerRow = r;
    }
    if (table.headerRow < 0) return false;
    // Columns by their names in the header row; where a name is missing, the column by position.
    const int first = range ? range->firstColumn : 0;
    static const std::vector<QString> kNoCells;
    const auto& cells = rows.size() > static_cast<size_t>(table.headerRow)
                            ? rows[static_cast<size_t>(table.headerRow)]
                            : kNoCells;
    table.columns.clear();
    for (int h = 0; h < headers.size(); ++h) {
        int column = first + h;
        for (size_t c = 0; c < cells.size(); ++c)
            if (!headers[h].isEmpty() && cells[c].trimmed().compare(headers[h], Qt::CaseInsensitive) == 0)
                column = static_cast<int>(c);
        table.columns.push_back(column);
    }
    return true;
}

bool ImportParamWorkbook(CM330Doc& doc, const Workbook& book, ImportMatch match) {
    doc.SetModifiedFlag();
    for (int g = 0; g < static_cast<int>(doc.m_groups.size()) && g < kGroupCount; ++g) {
        SheetTable table;
        if (!FindSheetTable(book, SheetName(g), ColumnNames(), table)) {
            Prompt().Message(QStringLiteral("The workbook has no sheet %1 with the columns %2.")
                                 .arg(SheetName(g), ColumnNames().join(u',')));
            return false;
        }
        const int existing = CountExisting(doc, g);
        CCodeIndex index(doc, g);
        for (int at = table.headerRow + kFirstDataRow, i = 0; at <= table.lastRow; ++at, ++i) {
            const QString code = table.sheet->Cell(at, table.columns[0]);
            std::optional<RowRef> row;
            if (match == ImportMatch::ByCode) {
                row = index.Take(code);
            } else if (i < existing) {
                row = RowRef{g, Atoi(code.mid(3, 2))};
            }
            if (!row) continue;
            // The default has no setter of its own; the set value's announces the row's group.
            doc.RowAt(row->group, row->row).m_strDefault = table.sheet->Cell(at, table.columns[1]);
            doc.SetSetValue(row->group, row->row, table.sheet->Cell(at, table.columns[2]));
        }
    }
    Prompt().Message(QString::fromUtf8(ExchangeText::ImportSuccess), MessageKind::Information);
    return true;
}

}  // namespace quillon
