#pragma once
// The five-digit LED display of the keypad picture: which segments light for a character, and
// where the digits and decimal points of a text stand. The text is laid out from the right, one
// digit to a slot; a point takes no slot and sits in the gap right of the digit before it.
// Coordinates are pixels of the keypad picture.

#include <QPoint>
#include <QSize>
#include <QString>
#include <cstdint>
#include <vector>

namespace quillon {

inline constexpr int kLedSlots = 5;
inline constexpr QSize kLedDigitSize{25, 39};
inline constexpr QSize kLedPointSize{10, 10};

// Segments of a seven-segment digit, as bits.
namespace LedSegment {
inline constexpr std::uint8_t A = 0x01;  // top
inline constexpr std::uint8_t B = 0x02;  // top right
inline constexpr std::uint8_t C = 0x04;  // bottom right
inline constexpr std::uint8_t D = 0x08;  // bottom
inline constexpr std::uint8_t E = 0x10;  // bottom left
inline constexpr std::uint8_t F = 0x20;  // top left
inline constexpr std::uint8_t G = 0x40;  // middle
}  // namespace LedSegment

// The lit segments of `c`: the digits 0 to 9 have theirs, everything else lights none.
std::uint8_t LedSegments(QChar c);

// One thing the display draws: a digit picture of kLedDigitSize, or a point of kLedPointSize,
// with its top left corner at `at`.
struct LedGlyph {
    QPoint at;
    std::uint8_t segments = 0;  // lit segments of a digit
    bool point = false;
    friend bool operator==(const LedGlyph&, const LedGlyph&) = default;
};

// The glyphs of `text`. Characters past the fifth slot are dropped; a character other than a
// digit or "." takes its slot and lights nothing.
std::vector<LedGlyph> LedLayout(const QString& text);

}  // namespace quillon
