#include "monitor/LedDisplay.h"

namespace quillon {
namespace {

using namespace LedSegment;

constexpr std::uint8_t kDigits[10] = {
    A | B | C | D | E | F,      // 0
    B | C,                      // 1
    A | B | D | E | G,          // 2
    A | B | C | D | G,          // 3
    B | C | F | G,              // 4
    A | C | D | F | G,          // 5
    A | C | D | E | F | G,      // 6
    A | B | C,                  // 7
    A | B | C | D | E | F | G,  // 8
    A | B | C | D | F | G,      // 9
};

// Slots counted from the right, and the point that stands after each of slots 2 to 5.
constexpr int kSlotX[kLedSlots] = {205, 170, 135, 100, 65};
constexpr int kDigitY = 59;
constexpr int kPointY = 85;

}  // namespace

std::uint8_t LedSegments(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9') ? kDigits[c.unicode() - '0'] : 0;
}

std::vector<LedGlyph> LedLayout(const QString& text)
{
    std::vector<LedGlyph> glyphs;
    int slot = 0;  // slots filled so far, from the right
    for (qsizetype i = text.size() - 1; i >= 0 && slot < kLedSlots; --i) {
        if (text[i] == QLatin1Char('.')) {
            // The point belongs to the next slot to its left; right of the first it has no place.
            if (slot >= 1)
                glyphs.push_back(LedGlyph{{kSlotX[slot] + kLedDigitSize.width(), kPointY}, 0, true});
            continue;
        }
        glyphs.push_back(LedGlyph{{kSlotX[slot], kDigitY}, LedSegments(text[i]), false});
        ++slot;
    }
    return glyphs;
}

}  // namespace quillon
