#include "monitor/GraphStore.h"

namespace quillon {

void CGraphStore::Clear()
{
    dayTimes.clear();
    timeTexts.clear();
    for (int c = 0; c < kGraphChannels; ++c) {
        valueTexts[c].clear();
        curveTimes[c].clear();
        curveValues[c].clear();
    }
}

void CGraphStore::AppendCurve(int curve, const QString& text, double sample, double time)
{
    valueTexts[curve].push_back(text);
    curveTimes[curve].push_back(time);
    curveValues[curve].push_back(sample);
}

bool CGraphStore::Append(const GraphSampleRow& row, double windowSeconds)
{
    dayTimes.push_back(row.dayTime);
    timeTexts.push_back(row.timeText);
    for (int c = 0; c < kGraphChannels; ++c)
        AppendCurve(c, row.valueTexts[c], row.samples[c], row.tick);
    bool trimmed = false;
    for (int c = 0; c < kGraphChannels; ++c) {
        auto& times = curveTimes[c];
        while (!times.empty() && times.back() - times.front() > windowSeconds) {
            times.pop_front();
            curveValues[c].pop_front();
            valueTexts[c].pop_front();
            if (c == 0 && !dayTimes.empty()) {
                dayTimes.pop_front();
                timeTexts.pop_front();
            }
            trimmed = true;
        }
    }
    return trimmed;
}

QString ClockText(long long msOfDay)
{
    constexpr long long kDay = 24LL * 3600 * 1000;
    long long ms = msOfDay % kDay;
    if (ms < 0)
        ms += kDay;
    return QStringLiteral("%1:%2:%3.%4")
        .arg(ms / 3600000, 2, 10, QLatin1Char('0'))
        .arg(ms / 60000 % 60, 2, 10, QLatin1Char('0'))
        .arg(ms / 1000 % 60, 2, 10, QLatin1Char('0'))
        .arg(ms % 1000, 3, 10, QLatin1Char('0'));
}

}  // namespace quillon
