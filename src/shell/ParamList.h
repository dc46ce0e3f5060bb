#pragma once
// The lines of the main view's parameter list: per group a heading line (two blanks and the
// group's name), then, for each row the catalogue really has, its code and name behind four blanks and its
// default and set value behind two. The list shows one group, or groups 00 to 13 below each other;
// with the simplified parameters in force it always shows the simplified group.

#include "params/M330Doc.h"

#include <QString>
#include <optional>
#include <utility>
#include <vector>

namespace quillon {

struct ParamListLine {
    int group = 0;
    int row = -1;           // -1: the group's heading line
    QString name;           // "  group name" or "    00-11 row name", in the current language
    QString defaultValue;   // "  " + default; empty on a heading
    QString setValue;       // "  " + set value; empty on a heading
    bool changed = false;   // the set value changed in the editor and is not written yet
};

// The group the list shows: `curGroup`, or 14 while the simplified group is in force.
int ListedGroup(int curGroup, int completeParams);

// The lines for `group` (-1: groups 00 to 13). Raises the range failure for a group the document
// doesn't have.
std::vector<ParamListLine> BuildParamList(const CM330Doc& doc, int group);

// The group and row the editor opens on for a double click on list item `item`, or nothing (item 0,
// a heading, past the last item). The row counts the rows *listed* before it in its group, not
// the group's rows: behind a gap (02-07 to 02-14 are no parameters) it falls short of the row's
// number, and the editor brings that row's tab to the front and marks that position.
std::optional<std::pair<int, int>> EditorTargetOfItem(const CM330Doc& doc, int group, int item);

}  // namespace quillon
