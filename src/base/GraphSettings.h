#pragma once
// The graph watch's settings: which station it samples and, for each of its four curves, the
// monitor value shown and the scale. They belong to the session, outlive every graph window, and
// are kept in the project file.

#include <QString>
#include <array>

namespace quillon {

inline constexpr int kGraphChannels = 4;

struct GraphSettings {
    int stationIndex = 0;  // index in the session's station list
    int station = 0;       // station that is sampled
    std::array<int, kGraphChannels> channelIndex{};     // selected entry of each curve's list
    std::array<QString, kGraphChannels> channelName;    // "No display" when the curve is unused
    std::array<QString, kGraphChannels> maximum;        // top of the scale, "10.00"
    std::array<QString, kGraphChannels> minimum;        // bottom of the scale, "0.00"

    GraphSettings() { Reset(); }
    // Every curve unused on its default scale; station index 0. A new document starts so.
    void Reset();
};

}  // namespace quillon
