// The rules the main frame applies without a window: command enable and check states, status
// pane widths, the project tree's items and clicks, the lines of the parameter list.

#include "base/PathName.h"
#include "base/StatusPanes.h"
#include "base/TextTable.h"
#include "shell/CommandIds.h"
#include "shell/CommandTable.h"
#include "shell/MenuLayout.h"
#include "shell/ParamList.h"
#include "shell/ProjectTreeRules.h"
#include "support/TestDirs.h"

#include <gtest/gtest.h>
#include <set>

using namespace quillon;

namespace {

std::set<int> AllGroupCommands() {
    std::set<int> ids;
    for (int n = 0; n < 14; ++n) ids.insert(CmdId::GroupCommand(n));
    return ids;
}

// Ids of every command that a menu or the tool bar shows.
std::set<int> ShownCommands() {
    std::set<int> ids;
    std::function<void(std::span<const MenuEntry>)> walk = [&](std::span<const MenuEntry> entries) {
        for (const MenuEntry& e : entries) {
            if (e.kind == MenuEntry::Command) ids.insert(e.id);
            if (e.kind == MenuEntry::Popup) walk(e.popup);
        }
    };
    walk(MenuBarLayout(kMenuNoProject));
    walk(MenuBarLayout(kMenuProject));
    for (int id : ToolbarLayout())
        if (id) ids.insert(id);
    return ids;
}

}  // namespace

TEST(CommandRules, EnableStatesWithoutProjectWithProjectAndOnline) {
    const std::set<int> alwaysOn{CmdId::New, CmdId::Open, CmdId::Exit, CmdId::PrintSetup, CmdId::Help,
                                 CmdId::About, CmdId::ViewToolbar, CmdId::ViewStatusBar, CmdId::ProjectWindow,
                                 CmdId::FrameLog, CmdId::LanguageSystem, CmdId::LanguageEnglish};
    const std::set<int> needProject{CmdId::Save, CmdId::SaveAs, CmdId::Close, CmdId::Print,
                                    CmdId::PrintPreview, CmdId::PrintTitle, CmdId::ImportParams,
                                    CmdId::ExportParams, CmdId::Connect, CmdId::Compare,
                                    CmdId::GraphWatch, CmdId::ParamSelect};
    const std::set<int> needOnline{CmdId::Read, CmdId::Status, CmdId::Control, CmdId::KeyPad,
                                   CmdId::PasswordSet, CmdId::PasswordClear};
    const std::set<int> needBoth{CmdId::Write, CmdId::AutoRefresh, CmdId::ChangeComm};
    // Every command shown somewhere is in exactly one of the sets, or is a group command.
    std::set<int> classified = AllGroupCommands();
    classified.insert(CmdId::SimplifiedGroup);
    for (const auto* set : {&alwaysOn, &needProject, &needOnline, &needBoth}) classified.insert(set->begin(), set->end());
    EXPECT_EQ(classified, ShownCommands());

    struct Situation {
        const char* name;
        bool project;
        int online;
    };
    for (const Situation& s : {Situation{"no project", false, 0}, Situation{"project", true, 0},
                               Situation{"online, no project", false, 1}, Situation{"project online", true, 1}}) {
        SCOPED_TRACE(s.name);
        CommandState state;
        state.hasProject = s.project;
        state.online = s.online;
        for (int id : alwaysOn) EXPECT_TRUE(IsCommandEnabled(id, state)) << id;
        for (int id : needProject) EXPECT_EQ(IsCommandEnabled(id, state), s.project) << id;
        for (int id : needOnline) EXPECT_EQ(IsCommandEnabled(id, state), s.online != 0) << id;
        for (int id : needBoth) EXPECT_EQ(IsCommandEnabled(id, state), s.project && s.online) << id;
    }
}

TEST(CommandRules, GroupEntriesFollowCompleteOrSimplifiedParameters) {
    CommandState state;
    state.hasProject = true;
    for (int complete : {1, 0}) {
        state.completeParams = complete;
        for (int id : AllGroupCommands()) EXPECT_EQ(IsCommandEnabled(id, state), complete == 1) << id;
        EXPECT_EQ(IsCommandEnabled(CmdId::SimplifiedGroup, state), complete == 0);
    }
    EXPECT_EQ(CommandText(CmdId::GroupCommand(13)), LoadText(TextId::GroupName00 + 13));
}

TEST(CommandRules, OnlineFlagsAutoRefreshAndChecks) {
    CommandState state;
    state.hasProject = true;
    state.online = 2;  // set, but not exactly 1
    EXPECT_FALSE(IsCommandEnabled(CmdId::PasswordSet, state));
    EXPECT_TRUE(IsCommandEnabled(CmdId::PasswordClear, state));
    EXPECT_TRUE(IsCommandEnabled(CmdId::Read, state));
    state.online = 1;
    EXPECT_TRUE(IsCommandEnabled(CmdId::PasswordSet, state));

    EXPECT_TRUE(IsCommandEnabled(CmdId::AutoRefresh, state));
    state.reading = 1;
    EXPECT_FALSE(IsCommandEnabled(CmdId::AutoRefresh, state));
    state.reading = 0;
    state.writing = 1;
    EXPECT_FALSE(IsCommandEnabled(CmdId::AutoRefresh, state));
    state.writing = 0;

    EXPECT_FALSE(IsCommandChecked(CmdId::AutoRefresh, state));
    state.autoRefresh = 1;
    EXPECT_TRUE(IsCommandChecked(CmdId::AutoRefresh, state));
    state.dockVisible = false;
    EXPECT_FALSE(IsCommandChecked(CmdId::ProjectWindow, state));
    state.dockVisible = true;
    EXPECT_TRUE(IsCommandChecked(CmdId::ProjectWindow, state));
    EXPECT_FALSE(IsCommandChecked(CmdId::Read, state));

    // Recent slots are on only where the list has an entry.
    state.recentCount = 3;
    EXPECT_TRUE(IsCommandEnabled(CmdId::RecentFirst + 2, state));
    EXPECT_FALSE(IsCommandEnabled(CmdId::RecentFirst + 3, state));
    EXPECT_FALSE(IsCommandEnabled(CmdId::RecentLast + 1, state));
    EXPECT_EQ(FindCommand(4711), nullptr);
}

TEST(StatusPanes, WidthsFollowTheClientWidth) {
    // Whole-number division of each share; pane 0 takes what is left.
    EXPECT_EQ(StatusPaneWidths(1000), (std::array<int, 5>{360, 142, 285, 142, 71}));
    EXPECT_EQ(StatusPaneWidths(13), (std::array<int, 5>{8, 1, 3, 1, 0}));

    EXPECT_EQ(StatusPaneText(1, "1.250"), "Version:1.250");
    EXPECT_EQ(StatusPaneText(4, "Online"), "Online");
    EXPECT_EQ(StatusPaneText(5, "x"), "");
    EXPECT_EQ(StatusPaneText(-1, "x"), "");
}

TEST(ProjectTree, ItemsAndClickRules) {
    const auto complete = ProjectTreeNodes(1);
    ASSERT_EQ(complete.size(), 16u);
    for (int n = 0; n < 14; ++n) EXPECT_EQ(complete[2 + n].data, 2002 + 2 * n);
    const auto simplified = ProjectTreeNodes(0);
    ASSERT_EQ(simplified.size(), 3u);
    EXPECT_EQ(simplified[2].data, 2030);

    // Root: nothing. "Parameter": all groups unless shown already. A group: that group, unless
    // it is shown already.
    EXPECT_EQ(TreeClickGroup(0, -1), std::nullopt);
    EXPECT_EQ(TreeClickGroup(0, 5), std::nullopt);
    EXPECT_EQ(TreeClickGroup(2000, 3), -1);
    EXPECT_EQ(TreeClickGroup(2000, -1), std::nullopt);
    EXPECT_EQ(TreeClickGroup(2002, -1), 0);
    EXPECT_EQ(TreeClickGroup(2028, -1), 13);
    EXPECT_EQ(TreeClickGroup(2028, 13), std::nullopt);
    EXPECT_EQ(TreeClickGroup(2030, -1), 14);
    EXPECT_EQ(TreeClickGroup(2030, 14), std::nullopt);
}

TEST(ParamList, LinesOfOneGroupAllGroupsAndTheSimplifiedGroup) {
    quillon::test::TempAppDir dir;
    SessionState s;
    s.m_strAppDir = dir.Path();
    CM330Doc doc(s);
    doc.SetSetValue(2, 3, doc.RowAt(2, 3).m_strSetValue, RowMark::Changed);

    const auto group2 = BuildParamList(doc, 2);
    ASSERT_FALSE(group2.empty());
    EXPECT_EQ(group2[0].row, -1);
    EXPECT_EQ(group2[0].name, "  " + doc.GroupAt(2).m_strName);
    EXPECT_TRUE(group2[0].defaultValue.isEmpty());
    // One line per row that exists: gap rows 02-07..02-14 are not listed.
    int exists = 0;
    for (const ParamRow& row : doc.GroupAt(2).m_rows) exists += row.m_bExists;
    EXPECT_EQ(int(group2.size()), 1 + exists);
    for (size_t i = 1; i < group2.size(); ++i) {
        const ParamRow& row = doc.RowAt(2, group2[i].row);
        EXPECT_EQ(row.m_bExists, 1);
        EXPECT_EQ(group2[i].name, "    " + row.m_strCode.left(5) + " " + row.m_strName);
        EXPECT_EQ(group2[i].defaultValue, "  " + row.m_strDefault);
        EXPECT_EQ(group2[i].setValue, "  " + row.m_strSetValue);
        EXPECT_EQ(group2[i].changed, group2[i].row == 3);
    }
    EXPECT_EQ(group2.back().row, 15);

    // All groups: groups 00 to 13 below each other, never the simplified group.
    const auto all = BuildParamList(doc, -1);
    int headings = 0;
    for (const ParamListLine& line : all) {
        EXPECT_LT(line.group, 14);
        headings += line.row < 0;
    }
    EXPECT_EQ(headings, 14);

    EXPECT_EQ(ListedGroup(-1, 1), -1);
    EXPECT_EQ(ListedGroup(3, 1), 3);
    EXPECT_EQ(ListedGroup(3, 0), 14);
    EXPECT_THROW(BuildParamList(doc, 15), std::out_of_range);
}

TEST(PathName, FileNameIsBehindTheLastSeparator) {
    EXPECT_EQ(FileNameOfPath("/home/ana/pump.qpj"), "pump.qpj");
    EXPECT_EQ(FileNameOfPath("C:\\projects\\pump.qpj"), "pump.qpj");
    EXPECT_EQ(FileNameOfPath("/mixed\\dir/a\\b.qpj"), "b.qpj");
    EXPECT_EQ(FileNameOfPath("pump.qpj"), "");
    EXPECT_EQ(FileNameOfPath(""), "");
}
