#pragma once
// The frequency knob of the keypad picture: where its pointer stands and which frequency it
// sets. The knob turns through 270 degrees around (232, 193), from the lower left (the lower
// frequency limit) over the top to the lower right (the upper limit); a drag is mapped quadrant
// by quadrant, so the travel is not quite even, which is how the drive's own panel feels.
// Coordinates are pixels of the keypad picture; frequencies are hundredths of a hertz.

#include <QPoint>
#include <cstdint>
#include <optional>

namespace quillon {

inline constexpr QPoint kKnobCentre{232, 193};
// Below this row the knob does nothing.
inline constexpr int kKnobLowestY = 265;

// The triangle drawn on the knob.
struct KnobPointer {
    QPoint tip, base1, base2;
    friend bool operator==(const KnobPointer&, const KnobPointer&) = default;
};
inline constexpr KnobPointer kKnobPointerAtStart{{216, 208}, {219, 198}, {225, 206}};

// What a drag to `at` does: the pointer moves, and the knob's value changes except straight
// above the centre. Nothing (nullopt) straight below the centre and from y 266 down.
struct KnobTurn {
    KnobPointer pointer;
    std::optional<double> value;  // hundredths of a hertz
};
std::optional<KnobTurn> KnobDrag(QPoint at, std::uint16_t lowerLimit, std::uint16_t upperLimit);

// The point at which a drag sets the pointer for `value`, 30 pixels from the centre. nullopt
// when the limits are equal, which leaves the fraction of the range undefined.
std::optional<QPoint> KnobPointForValue(double value, std::uint16_t lowerLimit,
                                        std::uint16_t upperLimit);

}  // namespace quillon
