#include "shell/CommandTable.h"

#include "base/Language.h"
#include "base/TextTable.h"
#include "shell/CommandIds.h"

#include <array>

namespace quillon {
namespace {

using R = Receiver;
using E = EnableRule;
using C = CheckRule;

constexpr std::array kCommands{
    // File
    CommandInfo{CmdId::New, "&New", "New", "Ctrl+N", R::Application, E::Always, C::None},
    CommandInfo{CmdId::Open, "&Open...", "Open", "Ctrl+O", R::Application, E::Always, C::None},
    CommandInfo{CmdId::RecentFirst, "Recent File", nullptr, nullptr, R::Application, E::RecentEntry, C::None},
    CommandInfo{CmdId::Save, "&Save", "Save", "Ctrl+S", R::Document, E::Always, C::None},
    CommandInfo{CmdId::SaveAs, "Save &As...", nullptr, nullptr, R::Document, E::Always, C::None},
    CommandInfo{CmdId::Close, "&Close", nullptr, nullptr, R::View, E::Always, C::None},
    CommandInfo{CmdId::Print, "&Print...", "Print", "Ctrl+P", R::View, E::Always, C::None},
    CommandInfo{CmdId::PrintPreview, "Print Pre&view", "Print Preview", nullptr, R::View, E::Always, C::None},
    CommandInfo{CmdId::PrintSetup, "P&rint Setup...", nullptr, nullptr, R::Application, E::Always, C::None},
    CommandInfo{CmdId::PrintTitle, "Print &Title...", nullptr, nullptr, R::View, E::Always, C::None},
    CommandInfo{CmdId::ImportParams, "&Import Parameters...", nullptr, nullptr, R::View, E::Always, C::None},
    CommandInfo{CmdId::ExportParams, "&Export Parameters...", nullptr, nullptr, R::View, E::Always, C::None},
    CommandInfo{CmdId::Exit, "E&xit", nullptr, nullptr, R::Application, E::Always, C::None},
    // Edit: the parameter editor, one command per group, in the order of the groups.
    CommandInfo{CmdId::GroupCommand(0), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(1), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(2), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(3), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(4), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(5), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(6), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(7), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(8), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(9), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(10), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(11), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(12), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::GroupCommand(13), nullptr, nullptr, nullptr, R::Frame, E::Complete, C::None},
    CommandInfo{CmdId::SimplifiedGroup, nullptr, nullptr, nullptr, R::Frame, E::NotComplete, C::None},
    // Run (INV without a project)
    CommandInfo{CmdId::Connect, "&Connect...", "Connect", nullptr, R::View, E::Always, C::None},
    CommandInfo{CmdId::Read, "&Read...", "Read", nullptr, R::Frame, E::Online, C::None},
    CommandInfo{CmdId::Write, "&Write...", "Write", nullptr, R::Frame, E::ProjectAndOnline, C::None},
    CommandInfo{CmdId::Compare, "C&ompare...", "Compare", nullptr, R::View, E::Always, C::None},
    CommandInfo{CmdId::Status, "&Status", "Status", nullptr, R::Frame, E::Online, C::None},
    CommandInfo{CmdId::Control, "Co&ntrol", "Control", nullptr, R::Frame, E::Online, C::None},
    // The frame's own rule would disable Graph Watch; the view answers first and leaves it on,
    // so it is on exactly while a project is open.
    CommandInfo{CmdId::GraphWatch, "&Graph Watch", "Graph Watch", nullptr, R::Frame, E::ProjectOpen, C::None},
    CommandInfo{CmdId::KeyPad, "&KeyPad", "KeyPad", nullptr, R::Frame, E::Online, C::None},
    CommandInfo{CmdId::AutoRefresh, "&Auto Refresh", nullptr, nullptr, R::View, E::RefreshToggle, C::AutoRefresh},
    CommandInfo{CmdId::PasswordSet, "设置...(&R)", nullptr, nullptr, R::Frame, E::OnlineIsOne, C::None},
    CommandInfo{CmdId::PasswordClear, "解除...(&D)", nullptr, nullptr, R::Frame, E::Online, C::None},
    CommandInfo{CmdId::ChangeComm, "Change Communication &Parameters...", nullptr, nullptr, R::View, E::Online, C::None},
    // View
    CommandInfo{CmdId::ViewToolbar, "&Toolbar", nullptr, nullptr, R::Frame, E::Always, C::ToolbarVisible},
    CommandInfo{CmdId::ViewStatusBar, "&Status Bar", nullptr, nullptr, R::Frame, E::Always, C::StatusBarVisible},
    CommandInfo{CmdId::ProjectWindow, "&Project Window", nullptr, nullptr, R::Frame, E::Always, C::DockVisible},
    CommandInfo{CmdId::ParamSelect, "Parameter S&elect...", "Parameter Select", nullptr, R::View, E::Always, C::None},
    CommandInfo{CmdId::FrameLog, "&Frame Log", nullptr, nullptr, R::Frame, E::Always, C::None},
    // Each language named in its own words, so either can be found whichever is in force.
    CommandInfo{CmdId::LanguageSystem, "中文(&C)", nullptr, nullptr, R::Frame, E::Always, C::LanguageSystem},
    CommandInfo{CmdId::LanguageEnglish, "&English", nullptr, nullptr, R::Frame, E::Always, C::LanguageEnglish},
    // Help
    CommandInfo{CmdId::Help, "&Contents", nullptr, "F1", R::Frame, E::Always, C::None},
    CommandInfo{CmdId::About, "&About Quillon...", "About", nullptr, R::Application, E::Always, C::None},
};

bool NeedsProject(Receiver r) { return r == Receiver::Document || r == Receiver::View; }

bool RuleHolds(EnableRule rule, int id, const CommandState& s) {
    switch (rule) {
        case E::Always: return true;
        case E::ProjectOpen: return s.hasProject;
        case E::ProjectAndOnline: return s.hasProject && s.online != 0;
        case E::Online: return s.online != 0;
        case E::OnlineIsOne: return s.online == 1;
        case E::Complete: return s.completeParams == 1;
        case E::NotComplete: return s.completeParams != 1;
        case E::RefreshToggle: return s.online != 0 && s.reading == 0 && s.writing == 0;
        case E::RecentEntry: return id - CmdId::RecentFirst < s.recentCount;
    }
    return false;
}

}  // namespace

std::span<const CommandInfo> CommandTable() { return kCommands; }

const CommandInfo* FindCommand(int id) {
    if (id >= CmdId::RecentFirst && id <= CmdId::RecentLast) id = CmdId::RecentFirst;
    for (const CommandInfo& c : kCommands)
        if (c.id == id) return &c;
    return nullptr;
}

bool IsCommandEnabled(int id, const CommandState& state) {
    const CommandInfo* c = FindCommand(id);
    if (!c) return false;
    if (NeedsProject(c->receiver) && !state.hasProject) return false;
    return RuleHolds(c->enable, id, state);
}

bool IsCommandChecked(int id, const CommandState& state) {
    const CommandInfo* c = FindCommand(id);
    if (!c) return false;
    switch (c->check) {
        case C::None: return false;
        case C::AutoRefresh: return state.autoRefresh != 0;
        case C::DockVisible: return state.dockVisible;
        case C::ToolbarVisible: return state.toolbarVisible;
        case C::StatusBarVisible: return state.statusBarVisible;
        case C::LanguageSystem: return CurrentLanguage() == UiLanguage::System;
        case C::LanguageEnglish: return CurrentLanguage() == UiLanguage::English;
    }
    return false;
}

QString CommandText(int id) {
    if (id == CmdId::SimplifiedGroup) return LoadText(TextId::SimplifiedGroupName);
    for (int n = 0; n < 14; ++n)
        if (id == CmdId::GroupCommand(n)) return LoadText(TextId::GroupName00 + n);
    const CommandInfo* c = FindCommand(id);
    return c && c->text ? Translated("Command", c->text) : QString();
}

QString CommandTip(int id) {
    const CommandInfo* c = FindCommand(id);
    return c && c->tip ? Translated("Command", c->tip) : QString();
}

}  // namespace quillon
