#pragma once
// kcomfile.ini: the line settings and station list of the last accepted link, kept between
// sessions. Four lines: port, baud index, "DPS" digits (data bits, parity, stop bits), stations.
// It is written beside the program, or in the temporary directory when the program directory
// is not writable; read from the same two places.

#include <QString>
#include <vector>

namespace quillon {

inline constexpr const char* kCommSettingsName = "/kcomfile.ini";

// Writes the process-wide settings, in the program directory or else the temporary one; when
// neither takes them the person is told why (SaveSessionFile).
void SaveCommSettings();
// Reads them back; a file that can't be read leaves the current values standing.
void LoadCommSettings();

// Takes the settings from the lines of a session file; missing lines change nothing.
void ApplyCommSettingsLines(const std::vector<QString>& lines);

// The two places, in the order they are tried.
QString CommSettingsPrimaryPath();
QString CommSettingsFallbackPath();

}  // namespace quillon
