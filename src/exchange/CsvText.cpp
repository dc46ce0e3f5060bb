#include "exchange/CsvText.h"

#include "base/TextConv.h"

#include <QSaveFile>

namespace quillon {

std::vector<QString> SplitCsvLines(QByteArrayView bytes) {
    const QString text = DecodeLegacyText(bytes);
    std::vector<QString> lines;
    QString line;
    for (const QChar c : text) {
        if (c == u'\r') {
            lines.push_back(line);
            line.clear();
        } else if (c != u'\n') {
            line.append(c);
        }
    }
    if (!line.isEmpty()) lines.push_back(line);
    return lines;
}

QByteArray JoinCsvLines(const QStringList& lines) {
    return lines.join(QStringLiteral("\r\n")).toUtf8();
}

QStringList SplitCsvFields(const QString& line) { return line.split(u','); }

bool WriteWholeFile(const QString& path, const QByteArray& bytes, QString* error) {
    QSaveFile file(path);
    const bool ok = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    if (!ok && error) *error = file.errorString();
    return ok;  // an unfinished QSaveFile leaves the target as it was
}

}  // namespace quillon
