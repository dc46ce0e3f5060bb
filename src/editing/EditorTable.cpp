#include "editing/EditorTable.h"

#include <array>

namespace quillon {
namespace {

constexpr int kNone = -2;      // no further tab
constexpr int kAny = 1 << 20;  // every row from here on

// The highest row of each tab that brings it to the front; tab 0 also takes every row below.
constexpr std::array<std::array<int, 4>, kEditorGroups> kTabUpper{{
    {9, 19, 29, kNone},     // 00
    {9, 18, kNone, kNone},  // 01
    {kAny, kNone, kNone, kNone},
    {9, 20, kNone, kNone},
    {9, 19, kNone, kNone},
    {9, 19, 24, kNone},  // 05
    {9, 19, 23, kNone},
    {9, 19, kNone, kNone},
    {9, 18, kNone, kNone},
    {9, 10, kNone, kNone},  // 09: row 11 shows no page
    {9, 19, 29, kNone},     // 10
    {9, 19, kNone, kNone},
    {kAny, kNone, kNone, kNone},
    {kAny, kNone, kNone, kNone},
    {9, 19, 29, kAny},  // the simplified group
}};

}  // namespace

int FrontTab(int group, int row) {
    if (group < 0 || group >= kEditorGroups) return -1;
    const auto& upper = kTabUpper[static_cast<std::size_t>(group)];
    for (std::size_t t = 0; t < upper.size() && upper[t] != kNone; ++t)
        if (row <= upper[t]) return static_cast<int>(t);
    return -1;
}

QString TabText(const PageSpec& page, const QString& groupName) {
    const QString literal = QString::fromUtf8(page.tabLiteral);
    return page.tab == 0 ? groupName + literal : literal;
}

}  // namespace quillon
