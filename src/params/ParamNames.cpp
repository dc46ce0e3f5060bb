#include "params/ParamNames.h"

#include "base/Language.h"

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

}  // namespace quillon
