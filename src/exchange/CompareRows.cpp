#include "exchange/CompareRows.h"

#include "params/M330Doc.h"
#include "params/ParamNames.h"

#include <array>

namespace quillon {

const CompareColumns& ColumnsOf(int mode) {
    static const std::array<CompareColumns, kCompareModeCount> kColumns{{
        {"出厂值和编辑值比较", "Default", "Set Value", &ParamRow::m_strDefault,
         &ParamRow::m_strSetValue},
        {"出厂值和读取值比较", "Default", "Read Value", &ParamRow::m_strDefault,
         &ParamRow::m_strReadValue},
        {"编辑值和读取值比较", "Set Value", "Read Value", &ParamRow::m_strSetValue,
         &ParamRow::m_strReadValue},
    }};
    return kColumns[mode >= 0 && mode < kCompareModeCount ? static_cast<std::size_t>(mode) : 0];
}

CompareResult CompareRows(const CM330Doc& doc, int mode) {
    const CompareColumns& c = ColumnsOf(mode);
    CompareResult result;
    for (const ParamGroup& group : doc.m_groups) {
        bool first = true;
        for (const ParamRow& row : group.m_rows) {
            // Exactly as text: QString equality compares every character.
            if (row.*c.left == row.*c.right) continue;
            if (first) result.push_back(ParamGroup{group.m_strName, {}});
            first = false;
            result.back().m_rows.push_back(row);
        }
    }
    return result;
}

QByteArray CompareText(const CompareResult& result, int mode) {
    const CompareColumns& c = ColumnsOf(mode);
    QByteArray text;
    for (const ParamGroup& group : result) {
        text += GroupNameOf(group.m_strName).toUtf8() + "\r\n";
        for (const ParamRow& row : group.m_rows)
            text += row.m_strCode.toUtf8() + '\t' + (row.*c.left).toUtf8() + '\t' +
                    (row.*c.right).toUtf8() + "\r\n";
    }
    return text;
}

QString CompareCodeColumn(const ParamRow& row) { return row.m_strCode.left(5); }

}  // namespace quillon
