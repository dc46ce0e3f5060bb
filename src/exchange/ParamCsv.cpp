#include "exchange/ParamCsv.h"

#include "base/Prompt.h"
#include "exchange/CodeIndex.h"
#include "exchange/CsvText.h"
#include "exchange/ExchangeTexts.h"
#include "params/ModelTable.h"

namespace quillon {
namespace {

constexpr int kFirstValueLine = 3;  // lines 0..2 are the heading

void SayBadLine(int index, const QString& line) {
    Prompt().Message(QString::fromUtf8(ExchangeText::BadLine)
                         .replace(QLatin1String("%d"), QString::number(index))
                         .replace(QLatin1String("%s"), line));
}

// The two fields of a value line, or an empty list. A 10-00 row's code carries its list text
// behind a comma, so such a line has one field too many: its first comma becomes a blank.
QStringList ValueFields(const QString& line) {
    QStringList fields = SplitCsvFields(line);
    if (fields.size() != 2 && line.left(5) == QLatin1String("10-00")) {
        QString joined = line;
        joined[joined.indexOf(u',')] = u' ';
        fields = SplitCsvFields(joined);
    }
    if (fields.size() != 2) fields.clear();
    return fields;
}

}  // namespace

QByteArray ExportParamCsv(const CM330Doc& doc, const QDateTime& now) {
    QStringList lines;
    lines << QStringLiteral("Model:") + doc.Session().m_strModelName
          << QStringLiteral("Parameter Name,Set Value")
          << QStringLiteral("Time:: %1,Page:: %2")
                 .arg(now.date().toString(QStringLiteral("MM-dd-yyyy")),
                      now.time().toString(QStringLiteral("hh:mm:ss")));
    for (size_t g = 0; g < doc.m_groups.size() && g < kGroupCount; ++g) {
        const auto& rows = doc.m_groups[g].m_rows;
        for (size_t r = 0; r < rows.size() && r < kRowsPerGroup; ++r)
            if (doc.m_rowExists[g][r]) lines << rows[r].m_strCode + u',' + rows[r].m_strSetValue;
    }
    return JoinCsvLines(lines);
}

void ResetDocumentToModel(CM330Doc& doc, const QString& modelName) {
    SessionState& session = doc.Session();
    session.m_strModelName = modelName;
    QString capacity;
    ModelFromName(modelName, session.m_nModelCode, capacity);
    for (auto& g : doc.m_savedRow) g.fill(0);
    for (auto& g : doc.m_rowExists) g.fill(0);
    doc.ReloadCatalogue();
}

bool ImportParamCsv(CM330Doc& doc, const std::vector<QString>& lines, ImportMatch match) {
    const QString first = lines.empty() ? QString() : lines.front();
    const qsizetype colon = first.indexOf(u':');
    ResetDocumentToModel(doc, colon < 0 ? QString() : first.mid(colon + 1));
    doc.SetModifiedFlag();

    CCodeIndex index(doc);
    int g = 0;
    int r = 0;
    for (int i = kFirstValueLine; i < static_cast<int>(lines.size()); ++i) {
        const QStringList fields = ValueFields(lines[i]);
        if (fields.isEmpty()) return SayBadLine(i, lines[i]), false;
        std::optional<RowRef> row;
        if (match == ImportMatch::ByCode) {
            row = index.Take(fields[0]);
        } else {
            if (r >= static_cast<int>(doc.GroupAt(g).m_rows.size())) {
                ++g;
                r = 0;
            }
            const QString& code = doc.RowAt(g, r).m_strCode;
            if (fields[0].size() >= 5 && fields[0].left(5) == code.left(5)) row = RowRef{g, r};
            ++r;
        }
        if (!row) return SayBadLine(i, lines[i]), false;
        doc.SetSetValue(row->group, row->row, fields[1]);
    }
    Prompt().Message(QString::fromUtf8(ExchangeText::ImportSuccess), MessageKind::Information);
    return true;
}

}  // namespace quillon
