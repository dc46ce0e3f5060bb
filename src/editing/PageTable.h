#pragma once
// The 33 pages of the parameter editor as data: each page's group, tab and tab text, and what the
// page does around a row's write button that is a fact of the page rather than of a parameter.
// Which rows a page shows is written once, in the parameter table (ParamSpec::page): the page
// takes them from there, in row order. The same parameter can be refused on its full page while the drive
// runs and accepted through its copy in the simplified group: the running test belongs to the
// page, and the parameter table of params/ notes it on each parameter together with everything
// else about a single parameter (control, decimals, limits, options, read-only).

#include <QString>
#include <span>
#include <vector>

namespace quillon {

inline constexpr int kPageRows = 10;  // rows a page can show

// When the write button tells a read-only row so.
enum class ReadOnlyTest {
    First,          // before anything else, even before the connection test
    AfterControls,  // after the controls were taken (the only page: group 00, tab 0)
};

struct PageSpec {
    int templateId;          // the page dialog's resource number, e.g. 5791
    int group;               // 0..13, 14 the simplified group
    int tab;                 // position on the editor's tab strip
    const char* tabLiteral;  // the tab's text (tab 0 has the group's name before it)
    ReadOnlyTest readOnly;
    bool readsVersion;       // reads RegSoftwareVersion into the document before the write
    bool readsRunSource;     // reads 00-02 into the session's m_nReg0002 before the write

    // The group rows the page shows, in order (from the parameter table).
    const std::vector<int>& Rows() const;
    int RowCount() const;
    // The group row in slot `slot`, -1 for an empty slot.
    int RowAt(int slot) const;
    // The slot that shows group row `row`, -1 when the page doesn't show it.
    int SlotOf(int row) const;
};

std::span<const PageSpec> PageSpecs();
// The pages of a group in tab order.
std::span<const PageSpec> PagesOfGroup(int group);
const PageSpec* PageByTemplate(int templateId);
// The page that shows row `row` of `group`; nullptr when no page does.
const PageSpec* PageOfRow(int group, int row);

}  // namespace quillon
