#include "shell/MenuLayout.h"

#include "shell/CommandIds.h"

#include <array>

namespace quillon {
namespace {

constexpr MenuEntry Cmd(int id, const char* text = nullptr) { return {MenuEntry::Command, id, text, {}}; }
constexpr MenuEntry Sep() { return {MenuEntry::Separator}; }
constexpr MenuEntry Recent() { return {MenuEntry::RecentList}; }
template <size_t N>
constexpr MenuEntry Popup(const char* title, const std::array<MenuEntry, N>& items) {
    return {MenuEntry::Popup, 0, title, items};
}

// The language chooser, in both menu bars.
constexpr std::array kLanguage{Cmd(CmdId::LanguageSystem), Cmd(CmdId::LanguageEnglish)};

// Menu 128: no project.
constexpr std::array kRecent128{Recent()};
constexpr std::array kFile128{Cmd(CmdId::New), Cmd(CmdId::Open), Sep(),
                              Popup("Recent &Project", kRecent128), Sep(), Cmd(CmdId::Exit)};
constexpr std::array kInv128{Cmd(CmdId::Connect), Cmd(CmdId::Read),       Sep(),
                             Cmd(CmdId::Status),  Cmd(CmdId::Control),    Cmd(CmdId::GraphWatch),
                             Cmd(CmdId::KeyPad)};
constexpr std::array kView128{Popup("&Language", kLanguage)};
constexpr std::array kHelp128{Cmd(CmdId::Help, "&How to..."), Cmd(CmdId::About)};
constexpr std::array kBar128{Popup("&File", kFile128), Popup("&INV", kInv128), Popup("&View", kView128),
                             Popup("&Help", kHelp128)};

// Menu 129: a project is open.
constexpr std::array kFile129{
    Cmd(CmdId::New),          Cmd(CmdId::Open),         Cmd(CmdId::Close),        Cmd(CmdId::Save),
    Cmd(CmdId::SaveAs),       Sep(),                    Cmd(CmdId::Print),        Cmd(CmdId::PrintPreview),
    Cmd(CmdId::PrintSetup),   Cmd(CmdId::PrintTitle),   Sep(),                    Cmd(CmdId::ImportParams),
    Cmd(CmdId::ExportParams), Sep(),                    Recent(),                 Sep(),
    Cmd(CmdId::Exit)};
constexpr std::array kEdit129{
    Cmd(CmdId::GroupCommand(0)),  Cmd(CmdId::GroupCommand(1)),  Cmd(CmdId::GroupCommand(2)),
    Cmd(CmdId::GroupCommand(3)),  Cmd(CmdId::GroupCommand(4)),  Cmd(CmdId::GroupCommand(5)),
    Cmd(CmdId::GroupCommand(6)),  Cmd(CmdId::GroupCommand(7)),  Cmd(CmdId::GroupCommand(8)),
    Cmd(CmdId::GroupCommand(9)),  Cmd(CmdId::GroupCommand(10)), Cmd(CmdId::GroupCommand(11)),
    Cmd(CmdId::GroupCommand(12)), Cmd(CmdId::GroupCommand(13)), Sep(),
    Cmd(CmdId::SimplifiedGroup)};
constexpr std::array kPassword129{Cmd(CmdId::PasswordSet), Cmd(CmdId::PasswordClear)};
constexpr std::array kRun129{
    Cmd(CmdId::Connect), Cmd(CmdId::Read),       Cmd(CmdId::Write),  Cmd(CmdId::Compare),
    Sep(),               Cmd(CmdId::Status),     Cmd(CmdId::Control), Cmd(CmdId::GraphWatch),
    Cmd(CmdId::KeyPad),  Sep(),                  Cmd(CmdId::AutoRefresh),
    Popup("Parameter Pass&word", kPassword129),  Cmd(CmdId::ChangeComm)};
constexpr std::array kView129{Cmd(CmdId::ViewToolbar), Cmd(CmdId::ViewStatusBar), Cmd(CmdId::ProjectWindow),
                              Sep(), Cmd(CmdId::ParamSelect),
                              Cmd(CmdId::FrameLog),
                              Sep(), Popup("&Language", kLanguage)};
constexpr std::array kHelp129{Cmd(CmdId::Help), Cmd(CmdId::About)};
constexpr std::array kBar129{Popup("&File", kFile129), Popup("&Edit", kEdit129), Popup("&Run", kRun129),
                             Popup("&View", kView129), Popup("&Help", kHelp129)};

}  // namespace

std::span<const MenuEntry> MenuBarLayout(int menuId) {
    if (menuId == kMenuNoProject) return kBar128;
    if (menuId == kMenuProject) return kBar129;
    return {};
}

}  // namespace quillon

namespace quillon {

std::span<const int> ToolbarLayout() {
    static constexpr std::array kButtons{
        CmdId::New,        CmdId::Open,   CmdId::Save,    0,            CmdId::Print,
        CmdId::PrintPreview, 0,           CmdId::Connect, CmdId::Read,  CmdId::Write,
        CmdId::Compare,    0,             CmdId::GraphWatch, CmdId::KeyPad, CmdId::Control,
        CmdId::Status,     0,             CmdId::ParamSelect, CmdId::About};
    return kButtons;
}

}  // namespace quillon
