#pragma once
// The program's text table: every message, caption and label that has a numeric id, in the
// exact words (and spelling) the drive tool has always used. Looked up by id.

#include <QString>
#include <span>

namespace quillon {

struct TextEntry {
    int id;
    const char* text;  // UTF-8
};

// All entries, ordered by id.
std::span<const TextEntry> TextTable();

// The text with this id; an empty text when the id is unknown.
QString LoadText(int id);
// The text with this id with its "%d" replaced by `value`.
QString FormatText(int id, int value);

// Ids that the code refers to by name.
namespace TextId {
inline constexpr int Project = 61450;
inline constexpr int Unlink = 61455;
inline constexpr int TypePrefix = 61456;            // "TYPE:"
inline constexpr int Parameter = 61459;
inline constexpr int CantOpenPort = 61468;
inline constexpr int NoDisplay = 61491;
inline constexpr int CantFindHelp = 61554;
inline constexpr int DataFileLost = 61566;
inline constexpr int StationCommError = 61572;
inline constexpr int AutoRefreshRunning = 61576;
inline constexpr int CantOpenFile = 61579;
inline constexpr int FileVersionTooNew = 61582;
inline constexpr int RunSourceNotZero = 61623;
inline constexpr int GroupName00 = 61624;            // 61624 + n for group n, n = 0..13
inline constexpr int VoltageClassMismatch = 61643;
inline constexpr int SimplifiedGroupName = 61645;
}  // namespace TextId

}  // namespace quillon
