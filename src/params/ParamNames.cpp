#include "params/ParamNames.h"

#include "base/Language.h"
#include "params/M330Doc.h"

namespace quillon {

QString ParamCodeOf(const ParamRow& row) { return row.m_strCode.left(kListTextColumn).trimmed(); }

QString ParamNameOf(const ParamRow& row) {
    if (CurrentLanguage() == UiLanguage::English) {
        const QString english = ListText(row).trimmed();
        if (!english.isEmpty()) return english;
    }
    return row.m_strName;
}

QString GroupNameOf(const QString& name) {
    return Translated("TextTable", name.toUtf8().constData());
}

std::vector<MotorParam> MotorListInLanguage(const CM330Doc& doc) {
    std::vector<MotorParam> list = doc.m_motorList;
    if (CurrentLanguage() != UiLanguage::English) return list;
    for (MotorParam& param : list)
        for (const ParamGroup& group : doc.m_groups)
            for (const ParamRow& row : group.m_rows)
                if (row.m_bExists && ParamCodeOf(row) == param.m_strCode)
                    param.m_strName = ParamNameOf(row);
    return list;
}

}  // namespace quillon
