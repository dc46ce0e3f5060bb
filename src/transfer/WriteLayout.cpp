#include "transfer/WriteLayout.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

using C = WriteCondition;
using U = WriteUse;

constexpr WriteFrame Frame(int group, quint16 start, int count, U use = U::Both,
                           C condition = C::Always) {
    return {{group, start, count}, use, condition};
}

constexpr std::array kWriteFrames{
    // 00: 00-08 is a display and is skipped
    Frame(0, 0x0000, 8), Frame(0, 0x0009, 12),
    // 01: the V/f curve points go one by one, so that the drive keeps them in order after every
    // step (the group routine checks each against the drive before sending it)
    Frame(1, 0x0100, 2),
    Frame(1, 0x0102, 2, U::Both, C::FreeVfCurve),
    Frame(1, 0x0104, 1, U::Both, C::FreeVfCurve), Frame(1, 0x0105, 1, U::Both, C::FreeVfCurve),
    Frame(1, 0x0106, 1, U::Both, C::FreeVfCurve), Frame(1, 0x0107, 1, U::Both, C::FreeVfCurve),
    Frame(1, 0x0108, 1, U::Both, C::FreeVfCurve), Frame(1, 0x0109, 1, U::Both, C::FreeVfCurve),
    Frame(1, 0x010A, 9),
    // 02: no-load current alone, then the rated current, so that 02-00 stays below 02-01
    Frame(2, 0x0200, 1, U::Both, C::MotorData), Frame(2, 0x0201, 6, U::Both, C::MotorData),
    Frame(2, 0x020F, 1, U::Both, C::MotorData),
    Frame(3, 0x0300, 4), Frame(3, 0x0306, 4), Frame(3, 0x030B, 1), Frame(3, 0x030D, 9),
    Frame(4, 0x0400, 6), Frame(4, 0x040B, 5),
    Frame(5, 0x0500, 9), Frame(5, 0x0511, 16),
    Frame(6, 0x0600, 8), Frame(6, 0x0610, 8), Frame(6, 0x0620, 8),
    Frame(7, 0x0700, 13),
    Frame(8, 0x0800, 10), Frame(8, 0x080A, 10),
    // 09: the communication settings 09-00..09-05 stay as they are, or the link would be lost
    Frame(9, 0x0906, 4),
    Frame(10, 0x0A00, 23),
    Frame(11, 0x0B00, 12), Frame(11, 0x0B0D, 5), Frame(11, 0x0B15, 1),
    // 12: 12-05..12-07 are displays
    Frame(12, 0x0C00, 5),
    // 13: the Write command sends the time mode and the parameter lock only; the editor also
    // the hours, the days and the reset code
    Frame(13, 0x0D05, 2, U::CommandOnly),
    Frame(13, 0x0D03, 4, U::EditorOnly), Frame(13, 0x0D08, 1, U::EditorOnly),
    // simplified group: the editor only; F30 and F31 are displays
    Frame(14, 0x0E01, 15, U::EditorOnly), Frame(14, 0x0E10, 14, U::EditorOnly),
    Frame(14, 0x0E20, 2, U::EditorOnly),
};

bool SentBy(WriteUse use, WriteRoute route) {
    switch (use) {
    case U::Both: return true;
    case U::CommandOnly: return route == WriteRoute::Command;
    case U::EditorOnly: return route == WriteRoute::Editor;
    }
    return false;
}

}  // namespace

std::span<const WriteFrame> WriteFrames() { return kWriteFrames; }

std::vector<WriteFrame> WriteFramesOf(int groupIndex, WriteRoute route) {
    std::vector<WriteFrame> frames;
    for (const WriteFrame& f : kWriteFrames)
        if (f.frame.group == groupIndex && SentBy(f.use, route)) frames.push_back(f);
    return frames;
}

bool IsWrittenRow(int groupIndex, int row, WriteRoute route) {
    return std::any_of(kWriteFrames.begin(), kWriteFrames.end(), [&](const WriteFrame& f) {
        return f.frame.group == groupIndex && SentBy(f.use, route) && f.frame.Covers(row);
    });
}

}  // namespace quillon
