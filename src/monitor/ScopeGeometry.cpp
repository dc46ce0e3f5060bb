#include "monitor/ScopeGeometry.h"

#include <algorithm>
#include <cmath>

namespace quillon {

ScopeLayout LayoutScope(const QRect& client)
{
    ScopeLayout l;
    l.face = client.adjusted(3, 2, -4, -60);
    l.plot = l.face.adjusted(50, 5, -20, -25);
    const int faceBottom = l.face.y() + l.face.height();
    l.boxRow = QRect(l.face.x(), faceBottom + 5, l.face.width(), 51);
    return l;
}

int CurveFrame::X(double t) const
{
    const double x = Left() + (t - t0) / spanSeconds * plot.width();
    return static_cast<int>(std::clamp(x, -1.0e6, 1.0e6));
}

int CurveFrame::Y(double sample) const
{
    double y = Bottom() - sample / 1000.0 * plot.height();
    if (std::isnan(y))
        y = 1.0e6;
    const int top = Top(), bottom = Bottom();
    const int iy = static_cast<int>(std::clamp(y, -1.0e6, 1.0e6));
    if (iy == top - 1 || (iy >= top && iy <= top + 2))
        return top + 3;
    if (iy >= bottom - 2 && iy <= bottom)
        return bottom - 3;
    return iy;
}

void CurvePolyline(const std::deque<double>& times, const std::deque<double>& samples,
                   const CurveFrame& frame, std::vector<QPoint>& out)
{
    out.clear();
    const std::size_t n = std::min(times.size(), samples.size());
    const double perSecond = frame.plot.width() / frame.spanSeconds;
    auto t = times.begin();
    auto s = samples.begin();
    for (std::size_t i = 0; i < n;) {
        const int x = frame.X(*t);
        // The first time that falls into the next pixel column.
        const double next = frame.t0 + (x + 1 - frame.Left()) / perSecond;
        const double first = *s;
        double low = first, high = first;
        std::size_t count = 1;
        for (++t, ++s, ++i; i < n && *t < next; ++t, ++s, ++i, ++count) {
            low = std::min(low, *s);
            high = std::max(high, *s);
        }
        if (count == 1) {
            out.emplace_back(x, frame.Y(first));
            continue;
        }
        // One stroke over the column's range, entered from the end nearer its first sample.
        const bool fromHigh = high - first < first - low;
        out.emplace_back(x, frame.Y(fromHigh ? high : low));
        out.emplace_back(x, frame.Y(fromHigh ? low : high));
    }
}

std::optional<int> ReadoutIndex(const std::deque<double>& times, const CurveFrame& frame,
                                int cursorX)
{
    const int n = static_cast<int>(times.size());
    if (n < 2 || cursorX > frame.X(times.back()))
        return std::nullopt;
    const auto it = std::partition_point(times.begin(), times.end(),
                                         [&](double t) { return frame.X(t) < cursorX; });
    const int right = static_cast<int>(it - times.begin());
    if (right == 0 || frame.X(times[right]) == cursorX)
        return right;
    const int left = right - 1;
    const int toLeft = cursorX - frame.X(times[left]);
    const int toRight = frame.X(times[right]) - cursorX;
    return toRight <= toLeft ? right : left;
}

}  // namespace quillon
