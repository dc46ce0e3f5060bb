#include "exchange/GraphExchange.h"

#include "base/Prompt.h"
#include "exchange/CsvText.h"
#include "exchange/ExchangeTexts.h"
#include "exchange/XlsxWrite.h"

namespace quillon {

void ExportGraph(const GraphData& data, ExportFormat format) {
    const QString path = AskExportPath(format);
    if (path.isEmpty()) return;
    if (format == ExportFormat::Csv) {
        if (!WriteWholeFile(path, ExportGraphCsv(data))) SayOpenFail(QString());
        return;
    }
    QString error;
    if (!WriteXlsx(BuildGraphWorkbook(data), path, error)) return SayOpenFail(error);
    Prompt().Message(QString::fromUtf8(ExchangeText::ExportSuccess), MessageKind::Information);
}

ImportResult ImportGraphFile(const QString& path, GraphData& data, bool* read) {
    bool reached = false;
    const ImportResult result = ImportByExtension(
        path, [&](const std::vector<QString>& lines) { return reached = true, ImportGraphCsv(lines, data); },
        [&](const Workbook& book) { return reached = true, ImportGraphWorkbook(book, data); });
    if (read) *read = reached;
    return result;
}

ImportResult ImportGraph(GraphData& data, bool* read) {
    if (read) *read = false;
    const QString path = AskImportPath();
    return path.isEmpty() ? ImportResult::NotRun : ImportGraphFile(path, data, read);
}

}  // namespace quillon
