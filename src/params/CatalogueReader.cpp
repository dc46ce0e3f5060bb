#include "params/CatalogueReader.h"

#include "base/TextConv.h"

namespace quillon {
namespace {

// The catalogue split keeps the lenient text operations the files have always been read with:
// a "not found" position (-1) makes a left part empty and a middle part start at the front.
QString LeftOf(const QString& s, qsizetype n) { return n <= 0 ? QString() : s.left(n); }
QString MidOf(const QString& s, qsizetype first, qsizetype count) {
    if (first < 0) first = 0;
    if (count <= 0 || first >= s.size()) return {};
    return s.mid(first, count);
}
QString MidOf(const QString& s, qsizetype first) {
    if (first < 0) first = 0;
    return first >= s.size() ? QString() : s.mid(first);
}

struct RowPosition {
    int group;
    int number;
    QString groupPart;  // "F" or "gg-", the front of a gap row's code
};

RowPosition PositionOf(const QString& line) {
    if (line.startsWith(u'F')) return {kSimplifiedGroup, Atoi(MidOf(line, 1, 2)), QStringLiteral("F")};
    const QString head = line.left(5);
    const qsizetype dash = head.indexOf(u'-');
    if (dash < 0) return {Atoi(head), 0, QString()};
    return {Atoi(head.left(dash)), Atoi(head.mid(dash + 1)), head.left(dash + 1)};
}

}  // namespace

ParamRow SplitCatalogueRow(const QString& line) {
    const qsizetype at = line.indexOf(u'@');
    const qsizetype dollar = line.indexOf(u'$');
    const qsizetype star = line.indexOf(u'*');
    ParamRow row;
    row.m_strCode = LeftOf(line, at);
    row.m_strDefault = MidOf(line, at + 1, dollar - at - 1);
    row.m_strSetValue = MidOf(line, dollar + 1, star - dollar - 1);
    row.m_strName = MidOf(line, star + 1);
    row.m_bExists = 1;
    return row;
}

void ParseCatalogue(const std::vector<QString>& lines, std::vector<ParamGroup>& groups,
                    FlagTable& rowExists) {
    groups.clear();
    for (auto& g : rowExists) g.fill(0);

    std::vector<ParamRow> working;
    int next = 0;
    for (const QString& line : lines) {
        const qsizetype hash = line.indexOf(u'#');
        if (hash >= 0) {
            groups.push_back(ParamGroup{line.mid(hash + 1), std::move(working)});
            working.clear();
            next = 0;
            continue;
        }
        const RowPosition pos = PositionOf(line);
        if (pos.group < 0 || pos.group >= kGroupCount || pos.number < 0 || pos.number >= kRowsPerGroup)
            ThrowRangeFailure();
        for (; next < pos.number; ++next) {
            ParamRow gap;
            gap.m_strCode = pos.groupPart + QString::asprintf("%02d", next);
            gap.m_strDefault = QStringLiteral("0");
            gap.m_strSetValue = QStringLiteral("0");
            working.push_back(std::move(gap));
        }
        working.push_back(SplitCatalogueRow(line));
        rowExists[pos.group][pos.number] = 1;
        ++next;
    }
}

InitRecord ParseInitialRecord(const QString& line) {
    InitRecord record;
    QString acc;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (c == u':') {
            record.m_strKey = acc;
            acc.clear();
        } else if (c == u',') {
            record.m_values.push_back(acc);
            acc.clear();
        } else if (c != QChar(0)) {
            acc += c;
        }
    }
    if (!acc.isEmpty()) record.m_values.push_back(acc);
    return record;
}

std::vector<InitRecord> ParseInitialTable(const std::vector<QString>& lines) {
    std::vector<InitRecord> table;
    for (const QString& raw : lines) {
        QString line = raw;
        // Trim on the left only: blanks in front of "END" still end the table.
        qsizetype first = 0;
        while (first < line.size() && line[first].isSpace()) ++first;
        line = line.mid(first);
        if (line == QLatin1String("END")) break;
        table.push_back(ParseInitialRecord(line));
    }
    return table;
}

std::vector<MotorParam> ParseMotorList(const std::vector<QString>& lines) {
    std::vector<MotorParam> list;
    for (const QString& raw : lines) {
        qsizetype first = 0;
        while (first < raw.size() && raw[first].isSpace()) ++first;
        const QString line = raw.mid(first);
        list.push_back(MotorParam{line.left(5), line.mid(6)});
    }
    return list;
}

}  // namespace quillon
