#pragma once
// Where the parameters of each group lie on the drive and how each register reads as text.
//
// Parameter gg-nn lives at register gg * 256 + nn; the simplified group is group 14 (F nn at
// 0x0E00 + nn). A group is read in a few frames that skip the holes of the register map. Every
// register value becomes display text in one of a handful of formats, and the texts are what the
// project keeps, so the format of a row decides how its factory default is spelled as well.

#include <QString>
#include <QtGlobal>
#include <span>

namespace quillon {

// Text form of a register value v (unsigned 16 bits):
//   N "%d"   D1 "%.1f" of v/10   D2 "%.2f" of v/100   D3 "%.3f" of v/1000
//   Z4 "%04d"   Z5 "%05d"   B5 bits 4..0 as "0"/"1"   O5 five octal digits of bits 14..0
//   M  the capacity code of the model whose code is v, empty for an unknown code
enum class RegFormat { N, D1, D2, D3, Z4, Z5, B5, O5, M };

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

// Format of a row's register; N for any row the group read does not single out.
RegFormat ReadFormatOf(int groupIndex, int row);

// Register value to display text.
QString FormatRegister(RegFormat format, quint16 value);

// Display text back to the register value, the inverse of FormatRegister for every text it
// produces: N, Z4, Z5 as a whole number; D1, D2 by the tool's write rule (text + 0.001) times ten
// to the decimals, cut; D3 the same with a nudge of 0.0001 (a 0.001 nudge would be a whole count);
// B5 base 2; O5 base 8; M the model code of the capacity text (0 when the text is none). Values
// outside 16 bits wrap as a 16-bit register would.
quint16 ParseRegisterText(RegFormat format, const QString& text);

// A scaled value as a register takes it: cut toward zero, then wrapped to 16 bits. Values beyond
// the int range saturate there before the wrap; non-finite values give 0.
quint16 CutToRegister(double scaled);

}  // namespace quillon
