#include "exchange/XlsxRead.h"

#include "exchange/ZipArchive.h"

#include <QHash>
#include <QXmlStreamReader>

namespace quillon {
namespace {

constexpr int kMaxColumns = 256;

// The text of the element the reader stands on: its <t> pieces, plain or in rich-text runs
// (<r><t>..</t></r>), without phonetic guides (<rPh>). Leaves the reader on its end element.
QString CollectText(QXmlStreamReader& xml) {
    QString text;
    int phonetic = 0;
    int depth = 1;
    while (depth > 0 && !xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::StartElement) {
            ++depth;
            if (xml.name() == u"rPh") ++phonetic;
            else if (xml.name() == u"t" && phonetic == 0)
                text += xml.readElementText(QXmlStreamReader::IncludeChildElements), --depth;
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
            if (xml.name() == u"rPh") --phonetic;
        }
    }
    return text;
}

std::vector<QString> ReadSharedStrings(const QByteArray& part) {
    std::vector<QString> strings;
    QXmlStreamReader xml(part);
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"si")
            strings.push_back(CollectText(xml));
    return strings;
}

// "B12" -> row 11, column 1. False for anything else.
bool CellPosition(QStringView ref, int& row, int& column) {
    qsizetype i = 0;
    int c = 0;
    while (i < ref.size() && ref[i].isLetter() && i < 3) c = c * 26 + (ref[i++].toUpper().unicode() - u'A' + 1);
    if (i == 0 || i == ref.size()) return false;
    bool ok = false;
    const int r = ref.mid(i).toInt(&ok);
    if (!ok || r < 1 || r > 1048576 || c > 16384) return false;
    row = r - 1;
    column = c - 1;
    return true;
}

QString NumberText(const QString& v) {
    bool ok = false;
    const double d = v.toDouble(&ok);
    return ok ? QString::number(d, 'g', 15) : v;
}

bool ReadSheet(const QByteArray& part, const std::vector<QString>& shared, WorkSheet& sheet) {
    QXmlStreamReader xml(part);
    int row = -1;
    int column = -1;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == u"row") {
            bool ok = false;
            const int r = xml.attributes().value(QLatin1String("r")).toInt(&ok);
            row = ok && r >= 1 && r <= 1048576 ? r - 1 : row + 1;
            column = -1;
        } else if (xml.name() == u"c") {
            const auto attrs = xml.attributes();
            int r = std::max(row, 0);
            int c = column + 1;
            if (attrs.hasAttribute(QLatin1String("r")) && !CellPosition(attrs.value(QLatin1String("r")), r, c)) return false;
            row = r;
            column = c;
            const QString type = attrs.value(QLatin1String("t")).toString();
            QString value;
            bool inlineText = false;
            int depth = 1;
            while (depth > 0 && !xml.atEnd()) {
                const auto token = xml.readNext();
                if (token == QXmlStreamReader::EndElement) --depth;
                else if (token != QXmlStreamReader::StartElement) continue;
                else if (xml.name() == u"v") value = xml.readElementText(QXmlStreamReader::IncludeChildElements);
                else if (xml.name() == u"is") value = CollectText(xml), inlineText = true;
                else ++depth;
            }
            QString text;
            if (type == u"s") {
                bool ok = false;
                const qsizetype i = value.toLongLong(&ok);
                if (ok && i >= 0 && static_cast<size_t>(i) < shared.size()) text = shared[static_cast<size_t>(i)];
            } else if (type == u"inlineStr" || type == u"str" || type == u"e" || inlineText) {
                text = value;
            } else if (type == u"b") {
                text = value == u"1" ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
            } else {
                text = NumberText(value);
            }
            // Columns past the few any file of ours uses are not kept.
            if (!text.isEmpty() && c < kMaxColumns) sheet.SetCell(r, c, text);
        }
    }
    return !xml.hasError();
}

// Sheet names in order with the part each one lives in.
struct SheetEntry {
    QString name;
    QString part;
};

QString ResolveTarget(const QString& target) {
    if (target.startsWith(u'/')) return target.mid(1);
    QString t = target;
    while (t.startsWith(QLatin1String("./"))) t.remove(0, 2);
    return QStringLiteral("xl/") + t;
}

}  // namespace

std::optional<Workbook> ReadXlsx(QByteArrayView package, QString& error) {
    CZipReader zip(package);
    if (!zip.IsOpen()) {
        error = QStringLiteral("the file is not a workbook (no zip package)");
        return std::nullopt;
    }
    const auto workbookPart = zip.Read(QStringLiteral("xl/workbook.xml"));
    const auto relsPart = zip.Read(QStringLiteral("xl/_rels/workbook.xml.rels"));
    if (!workbookPart || !relsPart) {
        error = QStringLiteral("the workbook's parts are missing or damaged");
        return std::nullopt;
    }
    QHash<QString, QString> targets;
    for (QXmlStreamReader xml(*relsPart); !xml.atEnd();)
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"Relationship")
            targets.insert(xml.attributes().value(QLatin1String("Id")).toString(),
                           ResolveTarget(xml.attributes().value(QLatin1String("Target")).toString()));

    Workbook book;
    std::vector<SheetEntry> entries;
    QXmlStreamReader xml(*workbookPart);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == u"sheet") {
            const auto attrs = xml.attributes();
            QString id;
            for (const auto& a : attrs)
                if (a.name() == u"id") id = a.value().toString();  // r:id in any prefix
            entries.push_back({attrs.value(QLatin1String("name")).toString(), targets.value(id)});
        } else if (xml.name() == u"definedName") {
            DefinedName n;
            n.name = xml.attributes().value(QLatin1String("name")).toString();
            // A name local to a sheet or one of the program's own (_xlnm.) is no range of ours.
            const bool local = xml.attributes().hasAttribute(QLatin1String("localSheetId"));
            if (ParseRangeReference(xml.readElementText(), n) && !local) book.names.push_back(n);
        }
    }
    if (xml.hasError()) {
        error = QStringLiteral("the workbook part is malformed: %1").arg(xml.errorString());
        return std::nullopt;
    }
    const auto sharedPart = zip.Read(QStringLiteral("xl/sharedStrings.xml"));
    const std::vector<QString> shared = sharedPart ? ReadSharedStrings(*sharedPart) : std::vector<QString>{};
    for (const SheetEntry& entry : entries) {
        WorkSheet sheet{entry.name, {}};
        const auto part = zip.Read(entry.part);
        if (!part || !ReadSheet(*part, shared, sheet)) {
            error = QStringLiteral("the sheet '%1' is missing or damaged").arg(entry.name);
            return std::nullopt;
        }
        book.sheets.push_back(std::move(sheet));
    }
    return book;
}

}  // namespace quillon
