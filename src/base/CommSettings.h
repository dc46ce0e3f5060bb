#pragma once
// kcomfile.ini: the line settings and station list of the last accepted link, kept between
// sessions. Four lines: port, baud index, "DPS" digits (data bits, parity, stop bits), stations.
// It is written beside the program, or in the user's configuration folder when the program
// folder is not writable (an installed program), or as a last resort in the temporary folder;
// read from the same places in the same order (SessionPlaces.h).

#include <QString>
#include <array>
#include <vector>

namespace quillon {

inline constexpr const char* kCommSettingsName = "kcomfile.ini";

// Writes the process-wide settings in the first place that takes them; when none does the person is told why (SaveSessionFile).
void SaveCommSettings();
// Reads them back; a file that can't be read leaves the current values standing.
void LoadCommSettings();

// Takes the settings from the lines of a session file; missing lines change nothing.
void ApplyCommSettingsLines(const std::vector<QString>& lines);

// The places, in the order they are tried; the first is the program folder's.
std::array<QString, 3> CommSettingsPlaces();
QString CommSettingsPrimaryPath();

}  // namespace quillon
