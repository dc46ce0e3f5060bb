#include "editing/PageTable.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace quillon {
namespace {

using Span = std::pair<int, int>;

// The slots of a page from runs of consecutive group rows.
constexpr std::array<std::int8_t, kPageRows> Rows(std::initializer_list<Span> spans) {
    std::array<std::int8_t, kPageRows> rows{};
    rows.fill(-1);
    std::size_t slot = 0;
    for (const Span& s : spans)
        for (int r = s.first; r <= s.second && slot < rows.size(); ++r)
            rows[slot++] = static_cast<std::int8_t>(r);
    return rows;
}

// Most pages: read-only rows told first, no version read, no run source read.
constexpr PageSpec Page(int id, int group, int tab, const char* literal,
                        std::initializer_list<Span> rows, bool version = false) {
    return {id, group, tab, literal, Rows(rows), ReadOnlyTest::First, version, false};
}

// In tab order within each group, groups in order.
constexpr std::array kPages{
    // Group 00, tab 0 takes the controls before it tells a read-only row, and reads the run
    // source for the rule of 00-01.
    PageSpec{5791, 0, 0, "-> 00-00 - 00-09 ", Rows({{0, 9}}), ReadOnlyTest::AfterControls, true,
             true},
    Page(5782, 0, 1, "    00-10 - 00-19    ", {{10, 19}}),
    Page(195, 0, 2, "        00-20        ", {{20, 20}}),
    Page(141, 1, 0, "-> 01-00 - 01-09 ", {{0, 9}}, true),
    Page(5783, 1, 1, "    01-10 - 01-18    ", {{10, 18}}),
    Page(5784, 2, 0, "-> 02-00 - 02-15 ", {{0, 6}, {15, 15}}, true),
    Page(174, 3, 0, "-> 03-00 - 03-13 ", {{0, 3}, {6, 9}, {11, 11}, {13, 13}}, true),
    Page(5786, 3, 1, "    03-14 - 03-21    ", {{14, 21}}),
    Page(176, 4, 0, "-> 04-00 - 04-14 ", {{0, 5}, {11, 14}}),
    Page(5796, 4, 1, "        04-15         ", {{15, 19}}, true),
    Page(262, 5, 0, "-> 05-00 - 05-17 ", {{0, 8}, {17, 17}}),
    Page(264, 5, 1, "    05-18 - 05-27    ", {{18, 27}}),
    Page(265, 5, 2, "    05-28 - 05-32    ", {{28, 32}}),
    Page(266, 6, 0, "-> 06-00 - 06-17 ", {{0, 7}, {16, 17}}),
    Page(267, 6, 1, "    06-18 - 06-35    ", {{18, 23}, {32, 35}}),
    Page(268, 6, 2, "    06-36 - 06-39    ", {{36, 39}}),
    Page(269, 7, 0, "-> 07-00 - 07-09 ", {{0, 9}}, true),
    Page(5794, 7, 1, "   07-10 - 07-12 ", {{10, 12}}),
    Page(5790, 8, 0, "-> 08-00 - 08-09 ", {{0, 9}}, true),
    Page(5787, 8, 1, "    08-10 - 08-19    ", {{10, 19}}, true),
    Page(271, 9, 0, "-> 09-00 - 09-09 ", {{0, 9}}),
    Page(5788, 9, 1, "    09-10    ", {{10, 10}}),
    Page(5792, 10, 0, "-> 10-00 - 10-09 ", {{0, 9}}),
    Page(273, 10, 1, "    10-10 - 10-19    ", {{10, 19}}),
    Page(274, 10, 2, "    10-20 - 10-22    ", {{20, 22}}),
    Page(275, 11, 0, "-> 11-00 - 11-09 ", {{0, 9}}),
    Page(5789, 11, 1, "    11-10 - 11-21    ", {{10, 11}, {13, 18}}),
    Page(5795, 12, 0, "-> 12-00 - 12-07 ", {{0, 7}}),
    Page(278, 13, 0, "-> 13-00 - 13-08 ", {{0, 8}}),
    Page(5804, 14, 0, "-> F01 - F10 ", {{1, 10}}),
    Page(5805, 14, 1, "    F11 - F20    ", {{11, 20}}),
    Page(5806, 14, 2, "    F21 - F30    ", {{21, 30}}),
    Page(5807, 14, 3, "    F31 - F33     ", {{31, 33}}),
};
static_assert(kPages.size() == 33);

}  // namespace

int PageSpec::RowCount() const {
    return static_cast<int>(std::count_if(rows.begin(), rows.end(), [](auto r) { return r >= 0; }));
}

int PageSpec::RowAt(int slot) const {
    return slot >= 0 && slot < kPageRows ? rows[static_cast<std::size_t>(slot)] : -1;
}

int PageSpec::SlotOf(int row) const {
    for (int s = 0; s < kPageRows; ++s)
        if (row >= 0 && rows[static_cast<std::size_t>(s)] == row) return s;
    return -1;
}

std::span<const PageSpec> PageSpecs() { return kPages; }

std::span<const PageSpec> PagesOfGroup(int group) {
    const auto first = std::find_if(kPages.begin(), kPages.end(),
                                    [&](const PageSpec& p) { return p.group == group; });
    const auto last = std::find_if(first, kPages.end(),
                                   [&](const PageSpec& p) { return p.group != group; });
    return {first, last};
}

const PageSpec* PageByTemplate(int templateId) {
    for (const PageSpec& p : kPages)
        if (p.templateId == templateId) return &p;
    return nullptr;
}

const PageSpec* PageOfRow(int group, int row) {
    for (const PageSpec& p : PagesOfGroup(group))
        if (p.SlotOf(row) >= 0) return &p;
    return nullptr;
}

}  // namespace quillon
