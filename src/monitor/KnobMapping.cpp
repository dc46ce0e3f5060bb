#include "monitor/KnobMapping.h"

#include <cmath>
#include <numbers>
#include <cstdlib>

namespace quillon {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr int kTipDistance = 22;     // from the centre to the pointer's tip
constexpr double kBaseHalf = 5.0;    // half the width of the pointer's base
constexpr double kPlaceRadius = 30;  // where a value puts the drag point

QPoint Rounded(double x, double y)
{
    return QPoint(static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)));
}

}  // namespace

std::optional<KnobTurn> KnobDrag(QPoint at, std::uint16_t lowerLimit, std::uint16_t upperLimit)
{
    const int cx = kKnobCentre.x(), cy = kKnobCentre.y();
    const int x = at.x(), y = at.y();
    if (y > kKnobLowestY)
        return std::nullopt;
    if (x == cx) {
        // Straight up the pointer stands upright and the value stays; straight down is no place.
        if (y >= cy)
            return std::nullopt;
        return KnobTurn{{{cx, cy - kTipDistance}, {cx - 5, cy - 13}, {cx + 5, cy - 13}}, std::nullopt};
    }
    const bool left = x < cx;
    const bool lowerHalf = y >= cy;
    double s = std::abs(y - cy) / static_cast<double>(std::abs(x - cx));
    // The ends of the knob's travel: 45 degrees below the left, 35 below the right.
    if (y > cy)
        s = std::min(s, left ? 1.0 : std::sqrt(2.0) / 2);
    const double t = std::atan(s);

    const int sx = left ? -1 : 1, sy = lowerHalf ? 1 : -1;
    const double dx = std::lround(std::sqrt(kTipDistance * kTipDistance / (s * s + 1)));
    const double dy = std::lround(std::sqrt(kTipDistance * kTipDistance * s * s / (s * s + 1)));
    const double tipX = cx + sx * dx, tipY = cy + sy * dy;
    // An equilateral triangle: its base 5 * sqrt(3) nearer to the centre, across the pointer.
    const double h = kBaseHalf * std::sqrt(3.0);
    const double midX = tipX - sx * h * std::cos(t), midY = tipY - sy * h * std::sin(t);
    const double acrossX = -sy * kBaseHalf * std::sin(t), acrossY = sx * kBaseHalf * std::cos(t);
    KnobTurn turn{{Rounded(tipX, tipY), Rounded(midX + acrossX, midY + acrossY),
                   Rounded(midX - acrossX, midY - acrossY)},
                  std::nullopt};

    const double range = static_cast<std::uint16_t>(upperLimit - lowerLimit);
    const double sweep = range * t * 2 / (3 * kPi);  // a sixth of the range per 45 degrees
    double value = 0;
    if (left && lowerHalf)
        value = std::abs(range / 6 - sweep);
    else if (left)
        value = range / 6 + sweep;
    else if (!lowerHalf)
        value = range * 5 / 6 - sweep;
    else
        value = range * 5 / 6 + range / 6 * t / std::atan(std::sqrt(2.0) / 2);
    turn.value = lowerLimit + value;
    return turn;
}

std::optional<QPoint> KnobPointForValue(double value, std::uint16_t lowerLimit,
                                        std::uint16_t upperLimit)
{
    const double r = (value - lowerLimit) / (static_cast<double>(upperLimit) - lowerLimit);
    if (!std::isfinite(r) || r > 1)
        return std::nullopt;
    // 270 degrees of travel that start 45 degrees past the bottom.
    const double a = r * 4.712389 + 0.7853981;
    const double t = std::atan(std::abs(std::tan(a)));
    const double across = kPlaceRadius * std::sin(t), along = kPlaceRadius * std::cos(t);
    const bool left = r <= 0.5;
    const bool lower = r <= 1.0 / 6 || r > 5.0 / 6;
    return QPoint(static_cast<int>(kKnobCentre.x() + (left ? -across : across)),
                  static_cast<int>(kKnobCentre.y() + (lower ? along : -along)));
}

}  // namespace quillon
