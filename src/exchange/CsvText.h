#pragma once
// The comma-separated text of the parameter and graph data files: lines end in CR LF with none
// after the last, fields are separated by "," and nothing is quoted, so a field can't hold a
// comma. Written as UTF-8 without a byte-order mark; read through DecodeLegacyText, so files
// saved by older Windows tools in GB18030 keep their Chinese names.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <vector>

namespace quillon {

// The lines of a file: a CR ends a line, every LF is dropped, and a last line without CR counts
// if it is not empty.
std::vector<QString> SplitCsvLines(QByteArrayView bytes);

// The bytes of a file: the lines joined by CR LF, nothing after the last.
QByteArray JoinCsvLines(const QStringList& lines);

// The fields of a line, split at every ",".
QStringList SplitCsvFields(const QString& line);

// Writes `bytes` to `path` through a temporary file beside it; false when it can't be written,
// with the reason in `error` when one is given.
bool WriteWholeFile(const QString& path, const QByteArray& bytes, QString* error = nullptr);

}  // namespace quillon
