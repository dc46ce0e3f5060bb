#pragma once
// The ids of the program's commands. Menus, tool bar and the enable rules refer to commands by
// these numbers; they are the ones the drive tool has always used, so two group commands stand
// out of numeric order (group 01 is 32787, group 02 is 32775).

namespace quillon::CmdId {

inline constexpr int New = 57600;
inline constexpr int Open = 57601;
inline constexpr int Close = 57602;
inline constexpr int Save = 57603;
inline constexpr int SaveAs = 57604;
inline constexpr int PrintSetup = 57606;
inline constexpr int Print = 57607;
inline constexpr int PrintPreview = 57609;
inline constexpr int RecentFirst = 57616;  // recent projects 57616..57623
inline constexpr int RecentLast = 57623;
inline constexpr int About = 57664;
inline constexpr int Exit = 57665;
inline constexpr int ViewToolbar = 59392;
inline constexpr int ViewStatusBar = 59393;

inline constexpr int Help = 32771;
inline constexpr int Connect = 32772;
inline constexpr int ProjectWindow = 32773;
inline constexpr int Group00 = 32774;
inline constexpr int Group02 = 32775;
inline constexpr int Group03 = 32776;  // groups 03..13: 32776..32786
inline constexpr int Group13 = 32786;
inline constexpr int Group01 = 32787;
inline constexpr int Read = 32788;
inline constexpr int Write = 32789;
inline constexpr int Status = 32790;
inline constexpr int Control = 32791;
inline constexpr int GraphWatch = 32792;
inline constexpr int KeyPad = 32793;
inline constexpr int PasswordSet = 32794;
inline constexpr int PasswordClear = 32795;
inline constexpr int PrintTitle = 32796;
inline constexpr int ImportParams = 32799;
inline constexpr int ExportParams = 32800;
inline constexpr int AutoRefresh = 32805;
inline constexpr int ChangeComm = 32807;
inline constexpr int ParamSelect = 32808;
inline constexpr int SimplifiedGroup = 32809;
inline constexpr int Compare = 32821;
inline constexpr int FrameLog = 32830;
inline constexpr int LanguageSystem = 32831;  // View > Language: the program's own texts
inline constexpr int LanguageEnglish = 32832;

// The editor command of parameter group n (0..13).
constexpr int GroupCommand(int n) {
    return n == 0 ? Group00 : n == 1 ? Group01 : n == 2 ? Group02 : Group03 + (n - 3);
}

}  // namespace quillon::CmdId
