#include "exchange/PrintTitleRules.h"

namespace quillon {

bool PrintTitlesFit(const PrintTitles& t) {
    return t.m_strTitle.toUtf8().size() <= kPrintTitleMaxBytes &&
           t.m_strDepartment.toUtf8().size() <= kPrintDepartmentMaxBytes &&
           t.m_strName.toUtf8().size() <= kPrintNameMaxBytes;
}

}  // namespace quillon
