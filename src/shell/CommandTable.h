#pragma once
// Every command of the program in one table: its id, the text of its menu entry and tool tip,
// who receives it, and when it is enabled or checked. Menus, tool bar and keyboard shortcuts all
// take their state from here, so a rule is written once.

#include <QString>
#include <span>

namespace quillon {

// Who handles the command. Commands of the document and of the view exist only while a project
// is open; without one they are grey whatever their own rule says.
enum class Receiver { Application, Frame, Document, View };

enum class EnableRule {
    Always,
    ProjectOpen,       // a project is open (also for frame commands such as Graph Watch)
    ProjectAndOnline,  // a project is open and a link is up
    Online,            // a link is up
    OnlineIsOne,       // the online flag is exactly 1
    Complete,          // complete parameter groups are in force
    NotComplete,       // the simplified group is in force
    RefreshToggle,     // online, and no group read or write under way
    RecentEntry,       // the recent-list slot has an entry
};

enum class CheckRule {
    None, AutoRefresh, DockVisible, ToolbarVisible, StatusBarVisible,
    LanguageSystem, LanguageEnglish,  // the language in force
};

struct CommandInfo {
    int id;
    const char* text;      // menu text with its mnemonic; nullptr: a name from the text table
    const char* tip;       // tool tip; nullptr: none
    const char* shortcut;  // nullptr: none
    Receiver receiver;
    EnableRule enable;
    CheckRule check;
};

// What the rules look at.
struct CommandState {
    bool hasProject = false;
    int online = 0;          // m_bOnline
    int completeParams = 1;  // m_bCompleteParams
    int autoRefresh = 0;     // m_bAutoRefresh
    int reading = 0;
    int writing = 0;
    int recentCount = 0;     // entries in the recent-project list
    bool dockVisible = true;
    bool toolbarVisible = true;
    bool statusBarVisible = true;
};

std::span<const CommandInfo> CommandTable();
// nullptr for an id that isn't a command. The recent slots 57616..57623 share one entry.
const CommandInfo* FindCommand(int id);

bool IsCommandEnabled(int id, const CommandState& state);
bool IsCommandChecked(int id, const CommandState& state);

// The menu text of a command in the current language; the group commands carry the names of
// their groups.
QString CommandText(int id);
// The tool tip of a command in the current language; empty for none.
QString CommandTip(int id);

}  // namespace quillon
