#include "exchange/GraphData.h"

#include "base/Prompt.h"
#include "base/TextConv.h"
#include "exchange/CsvText.h"
#include "exchange/ExchangeTexts.h"
#include "exchange/ParamWorkbook.h"

namespace quillon {
namespace {

constexpr const char* kSheet = "GraphData";
constexpr int kHeadingFields = kGraphCurves + 1;
constexpr int kSampleFields = kGraphCurves + 2;

void SayFileError() { Prompt().Message(QString::fromUtf8(ExchangeText::ImportFileError)); }

// The four texts behind the label of a heading line, or false when it has not five fields.
bool HeadingLine(const std::vector<QString>& lines, size_t i, std::array<QString, kGraphCurves>& to) {
    if (i >= lines.size()) return false;
    const QStringList fields = SplitCsvFields(lines[i]);
    if (fields.size() != kHeadingFields) return false;
    for (int c = 0; c < kGraphCurves; ++c) to[c] = fields[c + 1];
    return true;
}

QStringList Joined(const QString& first, const std::array<QString, kGraphCurves>& texts,
                   const QString& last = QString(), bool withLast = false) {
    QStringList fields{first};
    for (const QString& t : texts) fields << t;
    if (withLast) fields << last;
    return fields;
}

}  // namespace

GraphTime ParseGraphTime(const QString& text) {
    GraphTime t;
    const qsizetype colon = text.indexOf(u':');
    t.hour = Atoi(colon < 0 ? text : text.left(colon));
    t.minute = Atoi(text.mid(colon + 1, 2));
    const qsizetype colon2 = colon < 0 ? -1 : text.indexOf(u':', colon + 1);
    t.second = colon2 < 0 ? 0 : Atoi(text.mid(colon2 + 1, 2));
    t.millisecond = Atoi(text.right(3));
    t.seconds = t.millisecond * 0.001 + t.second + 60.0 * (t.minute + 60.0 * t.hour);
    return t;
}

void GraphData::AddSample(const std::array<QString, kGraphCurves>& values, const QString& time) {
    GraphSample s;
    s.values = values;
    for (int c = 0; c < kGraphCurves; ++c) s.numbers[c] = Atof(values[c]);
    s.time = time;
    const GraphTime t = ParseGraphTime(time);
    s.seconds = t.seconds;
    if (samples.empty()) start = t;
    samples.push_back(std::move(s));
}

QByteArray ExportGraphCsv(const GraphData& data) {
    QStringList lines;
    lines << Joined(QString(), data.names).join(u',') << Joined(QStringLiteral("Min"), data.minimum).join(u',')
          << Joined(QStringLiteral("Max"), data.maximum).join(u',');
    for (size_t i = 0; i < data.samples.size(); ++i)
        lines << Joined(QString::number(i), data.samples[i].values, data.samples[i].time, true).join(u',');
    return JoinCsvLines(lines);
}

bool ImportGraphCsv(const std::vector<QString>& lines, GraphData& data) {
    data = GraphData{};
    if (!HeadingLine(lines, 0, data.names) || !HeadingLine(lines, 1, data.minimum) ||
        !HeadingLine(lines, 2, data.maximum)) {
        SayFileError();
        return false;
    }
    data.samples.reserve(lines.size());
    std::array<QString, kGraphCurves> values;
    for (size_t i = 3; i < lines.size(); ++i) {
        const QStringList fields = SplitCsvFields(lines[i]);
        if (fields.size() != kSampleFields) {
            SayFileError();
            continue;
        }
        for (int c = 0; c < kGraphCurves; ++c) values[c] = fields[c + 1];
        data.AddSample(values, fields[kSampleFields - 1]);
    }
    return true;
}

Workbook BuildGraphWorkbook(const GraphData& data) {
    Workbook book;
    WorkSheet& sheet = book.AddNamedSheet(QLatin1String(kSheet), kSampleFields);
    auto put = [&sheet](int row, const QStringList& fields) {
        for (int c = 0; c < fields.size(); ++c) sheet.SetCell(row, c, fields[c]);
    };
    put(0, QStringList(kSampleFields, QString()));
    put(1, Joined(QStringLiteral("Index"), data.names, QStringLiteral("Time"), true));
    put(2, Joined(QStringLiteral("Min"), data.minimum));
    put(3, Joined(QStringLiteral("Max"), data.maximum));
    for (size_t i = 0; i < data.samples.size(); ++i)
        put(static_cast<int>(i) + 4,
            Joined(QString::number(i), data.samples[i].values, data.samples[i].time, true));
    book.CoverSheet(QLatin1String(kSheet));
    return book;
}

bool ImportGraphWorkbook(const Workbook& book, GraphData& data) {
    data = GraphData{};
    SheetTable table;
    // The first row of the range is empty: its header can't be found by content, only by name
    // or, in a workbook without names, as the row above "Index".
    if (!FindSheetTable(book, QLatin1String(kSheet), {QStringLiteral("Index")}, table)) {
        SayFileError();
        return false;
    }
    if (!book.FindName(QLatin1String(kSheet))) --table.headerRow;
    const WorkSheet& sheet = *table.sheet;
    const int first = table.columns[0];
    std::array<QString, kGraphCurves> texts;
    for (int at = table.headerRow + 1, i = 0; at <= table.lastRow; ++at, ++i) {
        if (i >= 3 && sheet.Cell(at, first).isEmpty()) break;
        for (int c = 0; c < kGraphCurves; ++c) texts[c] = sheet.Cell(at, first + 1 + c);
        if (i == 0) data.names = texts;
        else if (i == 1) data.minimum = texts;
        else if (i == 2) data.maximum = texts;
        else data.AddSample(texts, sheet.Cell(at, first + kSampleFields - 1));
    }
    Prompt().Message(QString::fromUtf8(ExchangeText::ImportSuccess), MessageKind::Information);
    return true;
}

}  // namespace quillon
