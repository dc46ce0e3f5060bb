#pragma once
// The frequency edit of the control panel (and of the keypad): what text it accepts as the
// person types, and the register value "Set" makes of it.

#include <QString>
#include <cstdint>

namespace quillon {

inline constexpr double kFrequencyEditMax = 1200.0;

// The edit's text after a change from `previous` to `text`: an empty text stands; a text that
// begins with ".", holds a second ".", holds anything but digits and ".", or is above 1200 gives
// `previous` back; a third decimal is cut off. The keypad's edit has another bound.
QString FilterFrequencyText(const QString& previous, const QString& text,
                            double max = kFrequencyEditMax);

// The frequency command of a text: its number plus `nudge`, times 100.0, cut to a whole
// number, low 16 bits. So 700.00 gives 4464 and 0.29 gives 28, as the control panel always sent
// them; the keypad adds 0.00001 first, which keeps 0.29 at 29.
std::uint16_t FrequencyCommandValue(const QString& text, double nudge = 0.0);

}  // namespace quillon
