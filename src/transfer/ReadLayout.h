#pragma once
// Where the parameters of each group lie on the drive: the frames of the group read.
//
// Parameter gg-nn lives at register gg * 256 + nn; the simplified group is group 14 (F nn at
// 0x0E00 + nn). A group is read in a few frames that skip the holes of the register map. How
// each register reads as text is a fact of its parameter, in the parameter table.

#include "params/ParamTable.h"

#include <QtGlobal>
#include <span>

namespace quillon {

inline constexpr int kRegisterGroupCount = 15;  // groups 00..13 and the simplified group 14

constexpr quint16 ParamRegister(int groupIndex, int row) {
    return static_cast<quint16>(groupIndex * 256 + row);
}

// One request of `count` consecutive registers from `start`, all inside one group.
struct RegisterFrame {
    int group;      // 0..13, 14 = simplified group
    quint16 start;  // register address of the first row
    int count;

    constexpr int FirstRow() const { return start & 0xFF; }
    constexpr int LastRow() const { return FirstRow() + count - 1; }
    constexpr bool Covers(int row) const { return row >= FirstRow() && row <= LastRow(); }
    // Length of a good function-3 reply: station, function, byte count, data, CRC.
    constexpr int ReadReplyLength() const { return 5 + 2 * count; }
};

// Every frame of a full read, group 00 first and the simplified group last, each group's frames
// in the order they are sent.
std::span<const RegisterFrame> ReadFrames();
// The read frames of one group in order; empty for an index outside 0..14.
std::span<const RegisterFrame> ReadFramesOf(int groupIndex);
// True when some read frame of the group covers the row.
bool IsReadRow(int groupIndex, int row);

}  // namespace quillon
