#include "transfer/ReadLayout.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

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

}  // namespace quillon
