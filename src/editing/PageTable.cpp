#include "editing/PageTable.h"

#include "params/ParamTable.h"

#include <algorithm>
#include <array>
#include <vector>

namespace quillon {
namespace {

// Most pages: read-only rows told first, no version read, no run source read.
constexpr PageSpec Page(int id, int group, int tab, const char* literal, bool version = false) {
    return {id, group, tab, literal, ReadOnlyTest::First, version, false};
}

// In tab order within each group, groups in order.
constexpr std::array kPages{
    // Group 00, tab 0 takes the controls before it tells a read-only row, and reads the run
    // source for the rule of 00-01.
    PageSpec{5791, 0, 0, "-> 00-00 - 00-09 ", ReadOnlyTest::AfterControls, true, true},
    Page(5782, 0, 1, "    00-10 - 00-19    "),
    Page(195, 0, 2, "        00-20        "),
    Page(141, 1, 0, "-> 01-00 - 01-09 ", true),
    Page(5783, 1, 1, "    01-10 - 01-18    "),
    Page(5784, 2, 0, "-> 02-00 - 02-15 ", true),
    Page(174, 3, 0, "-> 03-00 - 03-13 ", true),
    Page(5786, 3, 1, "    03-14 - 03-21    "),
    Page(176, 4, 0, "-> 04-00 - 04-14 "),
    Page(5796, 4, 1, "        04-15         ", true),
    Page(262, 5, 0, "-> 05-00 - 05-17 "),
    Page(264, 5, 1, "    05-18 - 05-27    "),
    Page(265, 5, 2, "    05-28 - 05-32    "),
    Page(266, 6, 0, "-> 06-00 - 06-17 "),
    Page(267, 6, 1, "    06-18 - 06-35    "),
    Page(268, 6, 2, "    06-36 - 06-39    "),
    Page(269, 7, 0, "-> 07-00 - 07-09 ", true),
    Page(5794, 7, 1, "   07-10 - 07-12 "),
    Page(5790, 8, 0, "-> 08-00 - 08-09 ", true),
    Page(5787, 8, 1, "    08-10 - 08-19    ", true),
    Page(271, 9, 0, "-> 09-00 - 09-09 "),
    Page(5788, 9, 1, "    09-10    "),
    Page(5792, 10, 0, "-> 10-00 - 10-09 "),
    Page(273, 10, 1, "    10-10 - 10-19    "),
    Page(274, 10, 2, "    10-20 - 10-22    "),
    Page(275, 11, 0, "-> 11-00 - 11-09 "),
    Page(5789, 11, 1, "    11-10 - 11-21    "),
    Page(5795, 12, 0, "-> 12-00 - 12-07 "),
    Page(278, 13, 0, "-> 13-00 - 13-08 "),
    Page(5804, 14, 0, "-> F01 - F10 "),
    Page(5805, 14, 1, "    F11 - F20    "),
    Page(5806, 14, 2, "    F21 - F30    "),
    Page(5807, 14, 3, "    F31 - F33     "),
};
static_assert(kPages.size() == 33);

using PageRows = std::vector<int>;

// Each page's rows, collected once from the parameter table, pages in the order of kPages.
const std::array<PageRows, kPages.size()>& RowsOfPages() {
    static const auto rows = [] {
        std::array<PageRows, kPages.size()> out;
        for (const ParamSpec& spec : ParamTable()) {
            if (spec.page == 0) continue;
            for (std::size_t p = 0; p < kPages.size(); ++p)
                if (kPages[p].templateId == spec.page && kPages[p].group == spec.group)
                    out[p].push_back(spec.row);
        }
        return out;
    }();
    return rows;
}

}  // namespace

const std::vector<int>& PageSpec::Rows() const {
    return RowsOfPages()[static_cast<std::size_t>(this - kPages.data())];
}

int PageSpec::RowCount() const { return static_cast<int>(Rows().size()); }

int PageSpec::RowAt(int slot) const {
    const PageRows& rows = Rows();
    return slot >= 0 && slot < static_cast<int>(rows.size()) ? rows[static_cast<std::size_t>(slot)]
                                                              : -1;
}

int PageSpec::SlotOf(int row) const {
    const PageRows& rows = Rows();
    const auto it = std::find(rows.begin(), rows.end(), row);
    return it == rows.end() ? -1 : static_cast<int>(it - rows.begin());
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
