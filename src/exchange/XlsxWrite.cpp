#include "exchange/XlsxWrite.h"

#include <QFile>
#include <cstdio>
#include <xlsxwriter.h>

namespace quillon {
namespace {

QString Quoted(const QString& sheet) {
    return u'\'' + QString(sheet).replace(QLatin1String("'"), QLatin1String("''")) + u'\'';
}

bool Fill(lxw_workbook* book, const Workbook& data, QString& error) {
    for (const WorkSheet& sheet : data.sheets) {
        const QByteArray name = sheet.name.toUtf8();
        lxw_worksheet* ws = workbook_add_worksheet(book, name.constData());
        if (!ws) {
            error = QStringLiteral("the sheet name '%1' can't be used").arg(sheet.name);
            return false;
        }
        for (size_t r = 0; r < sheet.rows.size(); ++r)
            for (size_t c = 0; c < sheet.rows[r].size(); ++c) {
                const QByteArray text = sheet.rows[r][c].toUtf8();
                worksheet_write_string(ws, static_cast<lxw_row_t>(r), static_cast<lxw_col_t>(c),
                                       text.constData(), nullptr);
            }
    }
    for (const DefinedName& n : data.names) {
        const QString formula = QStringLiteral("=%1!$%2$%3:$%4$%5")
                                    .arg(Quoted(n.sheet), ColumnLetters(n.firstColumn))
                                    .arg(n.firstRow + 1)
                                    .arg(ColumnLetters(n.lastColumn))
                                    .arg(n.lastRow + 1);
        if (workbook_define_name(book, n.name.toUtf8().constData(),
                                 formula.toUtf8().constData()) != LXW_NO_ERROR) {
            error = QStringLiteral("the name '%1' can't be defined").arg(n.name);
            return false;
        }
    }
    return true;
}

}  // namespace

bool WriteXlsx(const Workbook& data, const QString& path, QString& error) {
    const QString temporary = path + QStringLiteral(".part");
    const QByteArray temporaryName = QFile::encodeName(temporary);
    lxw_workbook* book = workbook_new(temporaryName.constData());
    if (!book) {
        error = QStringLiteral("can't create '%1'").arg(temporary);
        return false;
    }
    const bool filled = Fill(book, data, error);
    const lxw_error closed = workbook_close(book);
    if (!filled || closed != LXW_NO_ERROR) {
        if (filled) error = QString::fromUtf8(lxw_strerror(closed));
        QFile::remove(temporary);
        return false;
    }
    // rename() replaces the old file in one step, so a failure leaves it whole.
    if (std::rename(temporaryName.constData(), QFile::encodeName(path).constData()) != 0) {
        QFile::remove(temporary);
        error = QStringLiteral("can't replace '%1'").arg(path);
        return false;
    }
    return true;
}

}  // namespace quillon
