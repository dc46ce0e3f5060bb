#pragma once
// The graph watch's samples: one window of four divisions. Every list grows at the back and
// loses from the front. Each curve keeps its own tick times and samples (in plot units, 0 to
// 1000 across the scale) and is trimmed by its own time span; the times of day and their texts
// go with the first curve.

#include "base/GraphSettings.h"

#include <QString>

#include <array>
#include <deque>

namespace quillon {

// One sample as the sampling tick forms it.
struct GraphSampleRow {
    double dayTime = 0.0;  // local time of day, seconds
    QString timeText;      // "04:52:11.250"
    std::array<QString, kGraphChannels> valueTexts;
    double tick = 0.0;     // tick time, seconds
    std::array<double, kGraphChannels> samples{};  // plot units
};

class CGraphStore {
public:
    std::deque<double> dayTimes;
    std::deque<QString> timeTexts;
    std::array<std::deque<QString>, kGraphChannels> valueTexts;
    std::array<std::deque<double>, kGraphChannels> curveTimes;
    std::array<std::deque<double>, kGraphChannels> curveValues;

    void Clear();
    // Appends `row`, then drops from the front of each curve while its span of tick times
    // exceeds `windowSeconds`. True when anything was dropped: the window has filled.
    bool Append(const GraphSampleRow& row, double windowSeconds);
    // Appends one curve's sample alone, as a loaded file fills the store.
    void AppendCurve(int curve, const QString& text, double sample, double time);
    int Count(int curve) const { return static_cast<int>(curveTimes[curve].size()); }
};

// "hh:mm:ss.mmm" of a time of day in milliseconds, wrapped into one day in either direction.
QString ClockText(long long msOfDay);

}  // namespace quillon
