#include "shell/ParamList.h"

#include "params/ParamNames.h"

#include <algorithm>

namespace quillon {
namespace {

void AppendGroup(const CM330Doc& doc, int g, std::vector<ParamListLine>& lines) {
    const ParamGroup& group = doc.GroupAt(g);
    lines.push_back({g, -1, QStringLiteral("  ") + GroupNameOf(group.m_strName), {}, {}, false});
    const int rows = static_cast<int>(std::min<size_t>(group.m_rows.size(), kRowsPerGroup));
    for (int r = 0; r < rows; ++r) {
        if (!doc.m_rowExists[g][r]) continue;
        const ParamRow& row = group.m_rows[r];
        lines.push_back({g, r, QStringLiteral("    ") + ParamCodeOf(row) + u' ' + ParamNameOf(row),
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

std::optional<std::pair<int, int>> EditorTargetOfItem(const CM330Doc& doc, int group, int item) {
    if (item <= 0) return std::nullopt;
    auto listed = [&](int g) {
        const int rows = static_cast<int>(std::min<size_t>(doc.GroupAt(g).m_rows.size(), kRowsPerGroup));
        int n = 0;
        for (int r = 0; r < rows; ++r) n += doc.m_rowExists[g][r] ? 1 : 0;
        return n;
    };
    if (group >= 0) {
        if (item > listed(group)) return std::nullopt;
        return std::make_pair(group, item - 1);
    }
    int heading = 0;
    for (int g = 0; g < kSimplifiedGroup; ++g) {
        const int rows = listed(g);
        if (item == heading) return std::nullopt;
        if (item <= heading + rows) return std::make_pair(g, item - heading - 1);
        heading += rows + 1;
    }
    return std::nullopt;
}

}  // namespace quillon
