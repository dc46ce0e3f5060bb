#pragma once
// The Export and Import commands of the parameters, without windows: the file is asked for
// through the prompt seam, the format follows the choice of CExportFormatDlg (export) or the
// file's extension (import), and every message is the program's own.

#include "exchange/ParamCsv.h"
#include "exchange/Workbook.h"
#include "params/M330Doc.h"

#include <QDateTime>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

namespace quillon {

enum class ExportFormat { Excel, Csv };

// The format an extension selects: "csv" -> Csv, "xls"/"xlsx" -> Excel, anything else none.
std::optional<ExportFormat> FormatOfPath(const QString& path);

// Writes the document's parameters to `path`. False with the reason when it can't be written.
bool WriteParamFile(const CM330Doc& doc, ExportFormat format, const QString& path,
                    const QDateTime& now, QString& error);

// A workbook file, .xlsx or legacy .xls told apart by content; nullopt with the reason when it
// can't be read.
std::optional<Workbook> ReadWorkbookFile(const QString& path, QString& error);

// The export's file dialog for `format` (the filter "Export File(*.csv)" or "Export File(*.xlsx)");
// empty on "Cancel".
QString AskExportPath(ExportFormat format);
// "Opening the file is fail.", with the reason below it when there is one.
void SayOpenFail(const QString& why);

// The Export command: asks for the file ("Cancel" ends in silence), writes it, and says
// "Export success." or "Opening the file is fail.".
void ExportParams(const CM330Doc& doc, ExportFormat format);


enum class ImportResult {
    NotRun,  // no file chosen, or an extension that selects no import
    Failed,  // the file could not be read or a line was bad (already said)
    Done,
};

// Reads `path` as its extension says and hands the lines of a CSV file (SplitCsvLines) or the
// workbook to the import that returns whether it succeeded. A file that can't be read says
// "Opening the file is fail." and gives Failed; an extension of neither kind gives NotRun.
ImportResult ImportByExtension(const QString& path,
                               const std::function<bool(const std::vector<QString>&)>& fromCsv,
                               const std::function<bool(const Workbook&)>& fromWorkbook);

// The Import of one file by its extension (the desktop's rules; ImportMatch::ByCode for the
// command-line option). A workbook applies to the document as it is; a CSV file resets it to its
// model first. Raises the range failure as ImportParamCsv and ImportParamWorkbook do.
ImportResult ImportParamFile(CM330Doc& doc, const QString& path,
                             ImportMatch match = ImportMatch::ByPosition);

// The import's file dialog (workbooks or CSV files); empty on "Cancel".
QString AskImportPath();

// The Import command: asks for the file, then ImportParamFile.
ImportResult ImportParams(CM330Doc& doc);

}  // namespace quillon
