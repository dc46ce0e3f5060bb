#include "exchange/ParamExchange.h"

#include "base/Prompt.h"
#include "base/TextFile.h"
#include "exchange/CsvText.h"
#include "exchange/ExchangeTexts.h"
#include "exchange/ParamWorkbook.h"
#include "exchange/XlsRead.h"
#include "exchange/XlsxRead.h"
#include "exchange/XlsxWrite.h"

#include <QFileInfo>

namespace quillon {
namespace {

QString Suffix(const QString& path) { return QFileInfo(path).suffix().toUpper(); }

}  // namespace

void SayOpenFail(const QString& why) {
    QString text = QString::fromUtf8(ExchangeText::OpenFail);
    if (!why.isEmpty()) text += u'\n' + why;
    Prompt().Message(text);
}

QString AskExportPath(ExportFormat format) {
    // Workbooks are proposed as .xlsx, which every current spreadsheet program opens.
    const QString pattern = format == ExportFormat::Csv ? QStringLiteral("*.csv") : QStringLiteral("*.xlsx");
    return Prompt().SaveFileName(QStringLiteral("Export"),
                                 QString::fromUtf8(ExchangeText::ExportFilter).arg(pattern),
                                 pattern.mid(2), QString());
}

std::optional<ExportFormat> FormatOfPath(const QString& path) {
    const QString suffix = Suffix(path);
    if (suffix == u"CSV") return ExportFormat::Csv;
    if (suffix == u"XLS" || suffix == u"XLSX") return ExportFormat::Excel;
    return std::nullopt;
}

bool WriteParamFile(const CM330Doc& doc, ExportFormat format, const QString& path,
                    const QDateTime& now, QString& error) {
    if (format == ExportFormat::Excel) return WriteXlsx(BuildParamWorkbook(doc), path, error);
    if (WriteWholeFile(path, ExportParamCsv(doc, now))) return true;
    error = QStringLiteral("can't write '%1'").arg(path);
    return false;
}

std::optional<Workbook> ReadWorkbookFile(const QString& path, QString& error) {
    const auto bytes = ReadSmallFile(path);
    if (!bytes) {
        error = QStringLiteral("can't read '%1'").arg(path);
        return std::nullopt;
    }
    // By content: a zip package is an .xlsx whatever its name says (a workbook saved as "x.xls"
    // by a program that writes only the new format), anything else goes to the legacy reader.
    if (!bytes->startsWith("PK\x03\x04")) return ReadXls(path, error);
    return ReadXlsx(*bytes, error);
}

void ExportParams(const CM330Doc& doc, ExportFormat format) {
    const QString path = AskExportPath(format);
    if (path.isEmpty()) return;
    QString error;
    if (!WriteParamFile(doc, format, path, QDateTime::currentDateTime(), error)) return SayOpenFail(error);
    Prompt().Message(QString::fromUtf8(ExchangeText::ExportSuccess), MessageKind::Information);
}

ImportResult ImportByExtension(const QString& path,
                               const std::function<bool(const std::vector<QString>&)>& fromCsv,
                               const std::function<bool(const Workbook&)>& fromWorkbook) {
    const auto format = FormatOfPath(path);
    if (!format) return ImportResult::NotRun;
    bool ok = false;
    if (*format == ExportFormat::Csv) {
        const auto bytes = ReadSmallFile(path);
        if (!bytes) return SayOpenFail(QString()), ImportResult::Failed;
        ok = fromCsv(SplitCsvLines(*bytes));
    } else {
        QString error;
        const auto book = ReadWorkbookFile(path, error);
        if (!book) return SayOpenFail(error), ImportResult::Failed;
        ok = fromWorkbook(*book);
    }
    return ok ? ImportResult::Done : ImportResult::Failed;
}

ImportResult ImportParamFile(CM330Doc& doc, const QString& path, ImportMatch match) {
    return ImportByExtension(
        path, [&](const std::vector<QString>& lines) { return ImportParamCsv(doc, lines, match); },
        [&](const Workbook& book) { return ImportParamWorkbook(doc, book, match); });
}

QString AskImportPath() {
    return Prompt().OpenFileName(QStringLiteral("Import"), QString::fromUtf8(ExchangeText::ImportFilter),
                                 QStringLiteral("xlsx"));
}

ImportResult ImportParams(CM330Doc& doc) {
    const QString path = AskImportPath();
    if (path.isEmpty()) return ImportResult::NotRun;
    return ImportParamFile(doc, path);
}

}  // namespace quillon
