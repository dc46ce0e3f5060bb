#pragma once
// The digit groups of the pages: what a chosen digit means, shown as a hint beside the group,
// and the captions some groups carry. A digit group stands for one value text of digits, left
// digit first (08-00: "0" and four switches of the stall prevention; 12-00: five octal digits,
// each choosing what the display shows).

#include <QString>
#include <QStringList>

namespace quillon {

struct ParamSpec;

// The hint for choosing `value` in digit `digit` (counted from 1, left first) of the row; an
// empty text where the choice has none.
QString DigitHint(const ParamSpec& spec, int digit, int value);

// Captions over the digits (03-09: none over the first, then "S4" to "S1"), empty when none.
QStringList DigitCaptions(const ParamSpec& spec);
// The legend beside the group (03-09: what 0 and 1 mean), empty when none.
QStringList DigitLegend(const ParamSpec& spec);

// Digits a page shows of the row's digit group: 08-05 hides its two fixed digits, the others
// show them (disabled).
int ShownDigits(const ParamSpec& spec);

}  // namespace quillon
