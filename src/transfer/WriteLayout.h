#pragma once
// Which registers a group write sends, in which frames. How a row's text becomes the value that
// goes out is a fact of its parameter (GroupWriteValue, in the parameter table).
//
// Two routes write whole groups: the Write command (groups 00..13 from the project) and the
// editor's "Transmit Group" (the group open in the editor). They share the routines of groups
// 00..12. Group 13 has one routine per route, and the simplified group is written by the editor
// alone. Rows that no frame of a route covers are never written by it: 00-08 (a display), the
// drive's communication settings 09-00..09-05, the read-only displays 12-05..12-07 and most of
// group 13.

#include "transfer/ReadLayout.h"

#include <QString>
#include <QtGlobal>
#include <span>
#include <vector>

namespace quillon {

enum class WriteRoute { Command, Editor };

// Which routes send a frame.
enum class WriteUse { Both, CommandOnly, EditorOnly };

// When a frame is sent at all.
enum class WriteCondition {
    Always,
    FreeVfCurve,  // only while the list's 01-00 is 7 (free V/f curve)
    MotorData,    // only while motor data are written: a capacity mismatch the user accepted
                  // keeps the motor data of the drive
};

// One function-16 frame: `frame.count` values from `frame.start`. The reply is 8 bytes.
struct WriteFrame {
    RegisterFrame frame;
    WriteUse use;
    WriteCondition condition;
};

// Every write frame, group by group, each group's frames in the order they are sent.
std::span<const WriteFrame> WriteFrames();
// The frames of one group that a route sends, in order (conditions not applied).
std::vector<WriteFrame> WriteFramesOf(int groupIndex, WriteRoute route);
// True when a frame of the route covers the row.
bool IsWrittenRow(int groupIndex, int row, WriteRoute route);

}  // namespace quillon
