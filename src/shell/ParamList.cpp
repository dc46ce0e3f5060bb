#include "shell/ParamList.h"

#include <algorithm>

namespace quillon {
namespace {

void AppendGroup(const CM330Doc& doc, int g, std::vector<ParamListLine>& lines) {
    const ParamGroup& group = doc.GroupAt(g);
    lines.push_back({g, -1, QStringLiteral("  ") + group.m_strName, {}, {}, false});
    const int rows = static_cast<int>(std::min<size_t>(group.m_rows.size(), kRowsPerGroup));
    for (int r = 0; r < rows; ++r) {
        if (!doc.m_rowExists[g][r]) continue;
        const ParamRow& row = group.m_rows[r];
        lines.push_back({g, r, QStringLiteral("    ") + row.m_strName,
                         QStringLiteral("  ") + row.m_strDefault,
                         QStringLiteral("  ") + row.m_strSetValue, doc.RowChanged(g, r)});
    }
}

}  // namespace

int ListedGroup(int curGroup, int completeParams) {
    return completeParams == 0 ? kSimplifiedGroup : curGroup;
}

std::vector<ParamListLine> BuildParamList(const CM330Doc& doc, int group) {
    std::vector<ParamListLine> lines;
    if (group < 0) {
        for (int g = 0; g < kSimplifiedGroup; ++g) AppendGroup(doc, g, lines);
    } else {
        if (group >= kGroupCount) ThrowRangeFailure();
        AppendGroup(doc, group, lines);
    }
    return lines;
}

}  // namespace quillon
