#pragma once
// What the parameter editor decides from the page table: the text of each tab and which tab
// comes to the front for the row the editor was opened on. The front tab goes by tens of the row
// number, group by group, also where a tab's text names other numbers; a row past the last range
// of its group brings no page to the front.

#include "editing/PageTable.h"

#include <QString>

namespace quillon {

inline constexpr int kEditorGroups = 15;  // 00..13 and the simplified group
inline constexpr const char* kEditorCaption = "R770 Parameter";

// The tab that comes to the front for `row` of `group` (-1 counts as below 10); -1 for none.
int FrontTab(int group, int row);
// The text of a page's tab: the group's name before tab 0's literal, the literal alone elsewhere.
QString TabText(const PageSpec& page, const QString& groupName);

}  // namespace quillon
