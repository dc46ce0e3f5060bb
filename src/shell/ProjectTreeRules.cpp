#include "shell/ProjectTreeRules.h"

#include "base/TextTable.h"

namespace quillon {

std::vector<TreeNodeInfo> ProjectTreeNodes(int completeParams) {
    std::vector<TreeNodeInfo> nodes{{TreeData::Root, LoadText(TextId::Project), 0},
                                    {TreeData::Parameter, LoadText(TextId::Parameter), 1}};
    if (completeParams != 0) {
        for (int n = 0; n < 14; ++n)
            nodes.push_back({TreeData::FirstGroup + 2 * n, LoadText(TextId::GroupName00 + n), 2});
    } else {
        nodes.push_back({TreeData::Simplified, LoadText(TextId::SimplifiedGroupName), 2});
    }
    return nodes;
}

std::optional<int> TreeClickGroup(int itemData, int curGroup) {
    if (itemData == TreeData::Root) return std::nullopt;
    // 2000 gives -1 (all groups), 2002 + 2n gives n, 2030 gives 14.
    const int group = itemData == TreeData::Parameter ? -1 : (itemData - TreeData::FirstGroup) / 2;
    if (group == curGroup) return std::nullopt;
    return group;
}

}  // namespace quillon
