#include "editing/DigitHints.h"

#include "base/Language.h"
#include "params/ParamTable.h"

#include <array>

namespace quillon {
namespace {

struct DigitHintRow {
    int digit;
    const char* off;  // the digit at 0
    const char* on;   // the digit at 1
};

// Stall prevention, 08-00. Trailing blanks belong to the texts.
constexpr DigitHintRow kStall[] = {
    {2, "Enable over voltage Prevention in Run Mode", "Disable over voltage Prevention in Run Mode "},
    {3, "Enable Trip Prevention in Run Mode", "Disable Trip Prevention in Run Mode"},
    {4, "Enable Trip Prevention During Deceleration", "Disable Trip Prevention During Deceleration"},
    {5, "Enable Trip Prevention During Acceleration", "Disable Trip Prevention During Acceleration "},
};

// Motor overload, 08-05 and F27.
constexpr DigitHintRow kOverload[] = {
    {3, "Standard Motor", "Invertor Duty Motor ( Force Vent)"},
    {4, "Motor Overload Cold Start ", "Motor Overload Hot Start "},
    {5, "Disable Electronic Motor Overload Protection", "Enable Electronic Motor Overload Protection "},
};

// Display choice of 12-00, by the digit's value.
constexpr std::array<const char*, 8> kDisplay{
    "Default display (frequency&parameters)", "Output Current", "Output Voltage ", "DC voltage ",
    "Temperature ", "PID feedback ", "Analog Signal Input. (AVI) ", "Analog Signal Input. (ACI) ",
};

bool Is(const ParamSpec& s, int group, int row) { return s.group == group && s.row == row; }
bool IsOverload(const ParamSpec& s) { return Is(s, 8, 5) || Is(s, 14, 27); }

template <std::size_t N>
QString FromRows(const DigitHintRow (&rows)[N], int digit, int value) {
    for (const DigitHintRow& r : rows)
        if (r.digit == digit) return QString::fromLatin1(value ? r.on : r.off);
    return {};
}

}  // namespace

QString DigitHint(const ParamSpec& spec, int digit, int value) {
    if (Is(spec, 8, 0)) return FromRows(kStall, digit, value);
    if (IsOverload(spec)) return FromRows(kOverload, digit, value);
    if (Is(spec, 12, 0) && value >= 0 && value < static_cast<int>(kDisplay.size()))
        return QString::fromLatin1(kDisplay[static_cast<std::size_t>(value)]);
    return {};
}

QStringList DigitCaptions(const ParamSpec& spec) {
    if (Is(spec, 3, 9)) return {QString(), "S4", "S3", "S2", "S1"};
    return {};
}

QStringList DigitLegend(const ParamSpec& spec) {
    if (Is(spec, 3, 9)) return {Translated("Options", "0:常开接点"), Translated("Options", "1:常闭接点")};
    return {};
}

int ShownDigits(const ParamSpec& spec) {
    return Is(spec, 8, 5) ? spec.digits.count - spec.digits.fixed : spec.digits.count;
}

}  // namespace quillon
