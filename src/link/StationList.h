#pragma once
// The station list as a person types it: numbers and ranges separated by commas, such as
// "1,3,5-12". Numbers are read the lenient C way (a piece without digits is station 0, which
// goes into the list like any number), so only three things are refused: a number above 32, a
// station named twice, and a range running backwards.

#include <QString>
#include <vector>

namespace quillon {

inline constexpr int kMaxStation = 32;

// Fills `list` in the order typed and returns 1. On a refused text shows its message, empties
// `list` and returns 0. An empty text gives an empty list and success.
int ParseStationList(const QString& text, std::vector<int>& list);

// The stations as "%d" joined by ",": how the status bar shows a list.
QString JoinStations(const std::vector<int>& stations);

}  // namespace quillon
