#include "transfer/ReadLayout.h"

#include "base/TextConv.h"
#include "params/ModelTable.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>

namespace quillon {
namespace {

using F = RegFormat;

// The 26 frames of a full read.
constexpr std::array<RegisterFrame, 26> kReadFrames{{
    {0, 0x0000, 21},
    {1, 0x0100, 19},
    {2, 0x0200, 7}, {2, 0x020F, 1},
    {3, 0x0300, 4}, {3, 0x0306, 4}, {3, 0x030B, 1}, {3, 0x030D, 9},
    {4, 0x0400, 6}, {4, 0x040B, 5},
    {5, 0x0500, 9}, {5, 0x0511, 16},
    {6, 0x0600, 8}, {6, 0x0610, 8}, {6, 0x0620, 8},
    {7, 0x0700, 13},
    {8, 0x0800, 20},
    {9, 0x0900, 11},
    {10, 0x0A00, 23},
    {11, 0x0B00, 12}, {11, 0x0B0D, 5}, {11, 0x0B15, 1},
    {12, 0x0C00, 8},
    {13, 0x0D00, 9},
    {14, 0x0E01, 15}, {14, 0x0E10, 18},
}};

// Rows whose register is not a plain whole number; every other row reads as N.
struct FormatSpan {
    int group;
    int firstRow;
    int lastRow;
    RegFormat format;
};

constexpr FormatSpan kFormatSpans[] = {
    // 00: frequencies in hundredths, times in tenths
    {0, 8, 8, F::D2}, {0, 11, 13, F::D2}, {0, 14, 17, F::D1}, {0, 18, 18, F::D2},
    {0, 19, 20, F::D1},
    // 01: V/f curve (voltages in tenths, frequencies in hundredths) and vector control
    {1, 1, 1, F::D1}, {1, 2, 2, F::D2}, {1, 3, 3, F::D1}, {1, 4, 4, F::D2}, {1, 5, 5, F::D1},
    {1, 6, 6, F::D2}, {1, 7, 7, F::D1}, {1, 8, 8, F::D2}, {1, 9, 10, F::D1}, {1, 11, 11, F::D2},
    {1, 12, 12, F::D1}, {1, 15, 16, F::D1}, {1, 18, 18, F::D2},
    // 02: motor data; the rated speed 02-03 and 02-15 are whole numbers
    {2, 0, 2, F::D1}, {2, 4, 6, F::D1},
    // 03: digital inputs and outputs; 03-09 is the contact-type bit field
    {3, 6, 6, F::D2}, {3, 9, 9, F::B5}, {3, 13, 14, F::D2}, {3, 15, 16, F::D1},
    {3, 17, 18, F::D2}, {3, 20, 21, F::D1},
    // 05: preset speeds, then their acceleration and deceleration times
    {5, 1, 8, F::D2}, {5, 17, 32, F::D1},
    // 06: automatic run frequencies and step times
    {6, 1, 7, F::D2}, {6, 16, 23, F::D1},
    // 07: start and stop
    {7, 1, 1, F::D1}, {7, 5, 5, F::D1}, {7, 6, 6, F::D2}, {7, 8, 8, F::D1}, {7, 11, 11, F::D1},
    // 08: protection; 08-00 and 08-05 are bit fields
    {8, 0, 0, F::B5}, {8, 4, 4, F::D1}, {8, 5, 5, F::B5}, {8, 11, 11, F::D2}, {8, 13, 18, F::D1},
    // 09: communication
    {9, 6, 6, F::D1},
    // 10: PID
    {10, 2, 2, F::D1}, {10, 4, 5, F::D2}, {10, 6, 6, F::D1}, {10, 7, 7, F::D2}, {10, 10, 10, F::D1},
    {10, 13, 13, F::D1}, {10, 17, 17, F::D2}, {10, 18, 18, F::D1}, {10, 19, 19, F::D2},
    {10, 20, 20, F::D1},
    // 11: S-curves, skip frequencies, regeneration avoidance
    {11, 4, 7, F::D1}, {11, 8, 11, F::D2}, {11, 14, 14, F::D1}, {11, 15, 15, F::D2},
    // 12: display; 12-00 holds one octal digit per display slot
    {12, 0, 0, F::O5}, {12, 5, 5, F::Z5}, {12, 6, 6, F::D1},
    // 13: capacity code, software version, password, reset code
    {13, 0, 0, F::M}, {13, 1, 1, F::D3}, {13, 7, 7, F::Z5}, {13, 8, 8, F::Z4},
    // simplified group
    {14, 5, 6, F::D2}, {14, 7, 8, F::D1}, {14, 10, 11, F::D1}, {14, 16, 18, F::D2},
    {14, 20, 20, F::D1}, {14, 23, 23, F::D2}, {14, 25, 25, F::D1}, {14, 27, 27, F::B5},
    {14, 30, 30, F::D3}, {14, 32, 32, F::Z4},
};

int DecimalsOf(RegFormat format) {
    switch (format) {
    case F::D1: return 1;
    case F::D2: return 2;
    case F::D3: return 3;
    default: return 0;
    }
}

// A register holds 16 bits; larger or negative results wrap like the cast to a 16-bit word.
quint16 ToRegister(long long value) { return static_cast<quint16>(value & 0xFFFF); }

QString Digits(quint16 value, int bitsPerDigit) {
    QString text;
    const int mask = (1 << bitsPerDigit) - 1;
    for (int digit = 4; digit >= 0; --digit)
        text += QChar(u'0' + ((value >> (digit * bitsPerDigit)) & mask));
    return text;
}

}  // namespace

std::span<const RegisterFrame> ReadFrames() { return kReadFrames; }

std::span<const RegisterFrame> ReadFramesOf(int groupIndex) {
    const auto first = std::find_if(kReadFrames.begin(), kReadFrames.end(),
                                    [&](const RegisterFrame& f) { return f.group == groupIndex; });
    const auto last = std::find_if(first, kReadFrames.end(),
                                   [&](const RegisterFrame& f) { return f.group != groupIndex; });
    return {first, last};
}

bool IsReadRow(int groupIndex, int row) {
    const auto frames = ReadFramesOf(groupIndex);
    return std::any_of(frames.begin(), frames.end(),
                       [&](const RegisterFrame& f) { return f.Covers(row); });
}

RegFormat ReadFormatOf(int groupIndex, int row) {
    for (const FormatSpan& span : kFormatSpans)
        if (span.group == groupIndex && row >= span.firstRow && row <= span.lastRow)
            return span.format;
    return F::N;
}

QString FormatRegister(RegFormat format, quint16 value) {
    switch (format) {
    case F::N: return QString::number(value);
    case F::D1: return FormatFixed(value * 0.1, 1);
    case F::D2: return FormatFixed(value * 0.01, 2);
    case F::D3: return FormatFixed(value * 0.001, 3);
    case F::Z4: return QString::asprintf("%04d", int(value));
    case F::Z5: return QString::asprintf("%05d", int(value));
    case F::B5: return Digits(value, 1);
    case F::O5: return Digits(value, 3);
    case F::M: {
        QString capacity;
        ModelNameFromCode(value, capacity);
        return capacity;
    }
    }
    return {};
}

quint16 ParseRegisterText(RegFormat format, const QString& text) {
    switch (format) {
    case F::N:
    case F::Z4:
    case F::Z5: return ToRegister(Atoi(text));
    case F::D1:
    case F::D2: return CutToRegister((Atof(text) + 0.001) * std::pow(10, DecimalsOf(format)));
    case F::D3: return CutToRegister((Atof(text) + 0.0001) * 1000);
    case F::B5: return ToRegister(static_cast<long long>(Strtoul(text, 2) & 0xFFFF));
    case F::O5: return ToRegister(static_cast<long long>(Strtoul(text, 8) & 0xFFFF));
    case F::M: return ToRegister(std::max(CodeFromCapacity(text), 0));
    }
    return 0;
}

quint16 CutToRegister(double scaled) {
    if (!std::isfinite(scaled)) return 0;
    // Clamped first: casting a double outside the integer range is undefined.
    return ToRegister(static_cast<long long>(std::clamp(scaled, double(INT_MIN), double(INT_MAX))));
}

}  // namespace quillon
