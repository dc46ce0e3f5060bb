#include "exchange/XlsRead.h"

#include <QFile>
#include <algorithm>
#include <freexl.h>

namespace quillon {
namespace {

constexpr unsigned kMaxColumns = 256;
constexpr unsigned kMaxRows = 65536;  // the format's own bound
// Cells looked at in one workbook: far beyond any file of ours, and a bound on what a forged
// sheet size can cost.
constexpr qint64 kMaxCells = 4 * 1024 * 1024;

class CXlsHandle {
public:
    explicit CXlsHandle(const QString& path) {
        if (freexl_open(QFile::encodeName(path).constData(), &m_handle) != FREEXL_OK) {
            if (m_handle) freexl_close(m_handle);
            m_handle = nullptr;
        }
    }
    ~CXlsHandle() {
        if (m_handle) freexl_close(m_handle);
    }
    CXlsHandle(const CXlsHandle&) = delete;
    CXlsHandle& operator=(const CXlsHandle&) = delete;
    const void* get() const { return m_handle; }

private:
    const void* m_handle = nullptr;
};

QString CellText(const FreeXL_CellValue& v) {
    switch (v.type) {
    case FREEXL_CELL_INT: return QString::number(v.value.int_value);
    case FREEXL_CELL_DOUBLE: return QString::number(v.value.double_value, 'g', 15);
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME: return v.value.text_value ? QString::fromUtf8(v.value.text_value) : QString();
    default: return {};
    }
}

}  // namespace

std::optional<Workbook> ReadXls(const QString& path, QString& error) {
    CXlsHandle xls(path);
    unsigned int count = 0;
    if (!xls.get() || freexl_get_info(xls.get(), FREEXL_BIFF_SHEET_COUNT, &count) != FREEXL_OK) {
        error = QStringLiteral("the file is not a legacy workbook or is damaged");
        return std::nullopt;
    }
    Workbook book;
    qint64 cells = 0;
    for (unsigned short s = 0; s < count && s < 4096; ++s) {
        const char* name = nullptr;
        unsigned int rows = 0;
        unsigned short columns = 0;
        if (freexl_get_worksheet_name(xls.get(), s, &name) != FREEXL_OK ||
            freexl_select_active_worksheet(xls.get(), s) != FREEXL_OK ||
            freexl_worksheet_dimensions(xls.get(), &rows, &columns) != FREEXL_OK) {
            error = QStringLiteral("sheet %1 of the workbook is damaged").arg(s);
            return std::nullopt;
        }
        cells += std::min<qint64>(qint64(rows) + 1, kMaxRows) * std::min<qint64>(qint64(columns) + 1, kMaxColumns);
        if (cells > kMaxCells) {
            error = QStringLiteral("the workbook is too large for a parameter or graph file");
            return std::nullopt;
        }
        WorkSheet sheet{name ? QString::fromUtf8(name) : QString(), {}};
        // The sizes are read as counts; should a file give the last index instead, the one more
        // row and column looked at costs nothing (freexl refuses a cell outside the sheet).
        for (unsigned r = 0; r <= rows && r < kMaxRows; ++r)
            for (unsigned c = 0; c <= columns && c < kMaxColumns; ++c) {
                FreeXL_CellValue v{};
                if (freexl_get_cell_value(xls.get(), r, static_cast<unsigned short>(c), &v) != FREEXL_OK) continue;
                const QString text = CellText(v);
                if (!text.isEmpty()) sheet.SetCell(static_cast<int>(r), static_cast<int>(c), text);
            }
        book.sheets.push_back(std::move(sheet));
    }
    return book;
}

}  // namespace quillon
