#pragma once
// The parameter file in comma-separated form:
//
//   Model:<model name>
//   Parameter Name,Set Value
//   Time:: MM-DD-YYYY,Page:: hh:mm:ss
//   <m_strCode>,<m_strSetValue>        one line per row the row-exists table has, in group order
//
// The labels of line 3 are what they have always been: the date stands under "Time:", the time
// under "Page:".

#include "params/M330Doc.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <vector>

namespace quillon {

// How an import finds the row of a line. ByPosition walks every row of every group, gap rows
// included, so a group with a gap meets a line of the wrong code and stops there (files written
// by the drive tool have always been read that way). ByCode looks each line's code up among the
// rows that exist, so a file of a model with gap rows imports whole.
enum class ImportMatch { ByPosition, ByCode };

QByteArray ExportParamCsv(const CM330Doc& doc, const QDateTime& now);

// The document becomes a fresh one of the model `modelName`: the session takes the name (and the
// model table's code for it, when the table knows the name), the rows are rebuilt from the
// catalogue and the initial table, the flag tables are cleared.
void ResetDocumentToModel(CM330Doc& doc, const QString& modelName);

// Imports the lines of a parameter CSV file (SplitCsvLines). Resets the document to the model of
// line 1 before it looks at any other line, then copies the set values. A bad line says
// "Line %d(%s) of the import ffile is error." and ends the import with false, the rows before it
// changed; success says "Import success.". Raises the range failure when the lines run past the
// last group (ByPosition). The document is left modified either way.
bool ImportParamCsv(CM330Doc& doc, const std::vector<QString>& lines,
                    ImportMatch match = ImportMatch::ByPosition);

}  // namespace quillon
