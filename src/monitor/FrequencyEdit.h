#pragma once
// The frequency edit of the control panel (and of the keypad): what text it accepts as the
// person types, and the register value "Set" makes of it.

#include <QString>
#include <cstdint>

namespace quillon {

inline constexpr double kFrequencyEditMax = 1200.0;

// The edit's text after a change from `previous` to `text`: an empty text stands; a text that
// begins with ".", holds a second ".", holds anything but digits and ".", or is above 1200 gives
// `previous` back; a third decimal is cut off.
QString FilterFrequencyText(const QString& previous, const QString& text);

// The frequency command of a text: its number times 100.0, cut to a whole number, low 16 bits.
// So 700.00 gives 4464 and 0.29 gives 28, as the drive tool always sent them.
std::uint16_t FrequencyCommandValue(const QString& text);

}  // namespace quillon
