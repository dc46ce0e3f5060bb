#pragma once
// The project tree: the project, its parameters, and one item per parameter group. Each item
// carries a whole number (its item data) from which a click finds the group to show. The tree
// holds no data of its own: it is rebuilt from whether complete or simplified parameters are in
// force.

#include <QString>
#include <optional>
#include <vector>

namespace quillon {

namespace TreeData {
inline constexpr int Root = 0;            // "Project"
inline constexpr int Parameter = 2000;    // "Parameter": all groups
inline constexpr int FirstGroup = 2002;   // group n: 2002 + 2n
inline constexpr int Simplified = 2030;   // the simplified group
}  // namespace TreeData

struct TreeNodeInfo {
    int data;
    QString text;
    int depth;  // 0 root, 1 "Parameter", 2 a group
};

// The items of a rebuilt tree, parents before their children.
std::vector<TreeNodeInfo> ProjectTreeNodes(int completeParams);

// The group a left click on an item with `itemData` makes the view show, given the group shown
// now: -1 for all groups, 0..13, or 14 for the simplified group. nullopt: the click changes
// nothing (the root, or the group already shown, so the list isn't filled again).
std::optional<int> TreeClickGroup(int itemData, int curGroup);

}  // namespace quillon
