#pragma once
// The five panes of the status bar: file name, drive version, stations, model, link state. Each
// of the first four shows its label with the text behind it; the last shows its text alone.

#include <QString>
#include <array>

namespace quillon {

inline constexpr int kStatusPanes = 5;

namespace Pane {
inline constexpr int FileName = 0;
inline constexpr int Version = 1;
inline constexpr int Stations = 2;
inline constexpr int Model = 3;
inline constexpr int Link = 4;
}  // namespace Pane

// The label of a pane ("File name:", "Version:", "Station Num:", "Model:", none).
QString StatusPaneLabel(int pane);
// What a pane shows for `text`; empty for a pane that doesn't exist.
QString StatusPaneText(int pane, const QString& text);

// Widths from the frame's client width, in whole-number division: one seventh, two sevenths,
// one seventh and one fourteenth for panes 1 to 4; pane 0 takes the rest.
std::array<int, kStatusPanes> StatusPaneWidths(int clientWidth);

}  // namespace quillon
