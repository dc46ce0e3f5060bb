#pragma once
// The two menu bars. Menu 128 stands while no project is open, menu 129 while one is; the frame
// swaps them when the first project window opens and the last one closes. Texts and states come
// from the command table; an entry gives its own text only where a menu words a command
// differently.

#include <span>

namespace quillon {

inline constexpr int kMenuNoProject = 128;
inline constexpr int kMenuProject = 129;

struct MenuEntry {
    enum Kind { Command, Separator, RecentList, Popup };
    Kind kind;
    int id = 0;                          // Command
    const char* text = nullptr;          // Popup title, or a Command's own wording
    std::span<const MenuEntry> popup{};  // Popup
};

// The top-level popups of menu 128 or 129; empty for any other id.
std::span<const MenuEntry> MenuBarLayout(int menuId);

}  // namespace quillon

namespace quillon {

// The tool bar's buttons from left to right; 0 stands for a separator.
std::span<const int> ToolbarLayout();

}  // namespace quillon
