#pragma once
// The rules of the "Parameter Set" dialog's limit fields, without the dialog: the character
// filter each edit runs at every change, and the check on OK that every curve's maximum lies
// above its minimum.

#include "base/GraphSettings.h"

#include <QString>

namespace quillon {

inline constexpr double kLimitCeiling = 65535.0;

// What a limit field holds after its text changed from `previous` to `text`: the previous text
// back for a character other than a digit or ".", or for a value of 65535 or more; the last
// character dropped when more than two follow the ".".
QString FilterLimitText(const QString& previous, const QString& text);

// Goes through the curves in order; a curve whose maximum lies above its minimum gets both
// texts rewritten with two decimals. Returns the first curve that fails, or -1 when all pass.
int CheckLimits(GraphSettings& settings);

// The number in a limit text as the C library reads it: leading digits, the rest ignored.
double LimitValue(const QString& text);

}  // namespace quillon
