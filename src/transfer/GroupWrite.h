#pragma once
// The group write: one routine per group, each sending the write frames of its group
// (WriteLayout.h) from a snapshot of the project's set values, and checking before its frames the
// few relations that must hold on the drive at every moment:
//
//   00  00-02 and 00-03 differ, 00-05 and 00-06 differ (texts of the snapshot); the run source
//       is read from the drive before anything is sent.
//   01  the V/f curve points go one by one while 01-00 is 7, each checked against the points the
//       drive holds at that moment (01-04 >= 01-06 >= 01-08, 01-05 >= 01-07 >= 01-09).
//   02  02-00 below the drive's 02-01 before 02-00 is sent, then 02-01 not below the drive's
//       02-00 (by then the value just sent).
//   10  10-00 and 10-01 differ.
//
// A refusal or a failed frame leaves its text in the session's m_strLastError and ends the
// routine; what went before stays on the drive.

#include "transfer/WriteLayout.h"

#include <QString>
#include <QtGlobal>
#include <array>
#include <span>

namespace quillon {

class CDriveSerial;
class CM330Doc;
struct SessionState;

inline constexpr int kSnapshotGroups = kRegisterGroupCount;  // 00..13 and the simplified group
inline constexpr int kSnapshotRows = 50;

// The set values a write sends, by group and row, taken before the first frame.
using WriteSnapshot = std::array<std::array<QString, kSnapshotRows>, kSnapshotGroups>;

// Copies the set value of every row of groups `firstGroup` to `lastGroup` (rows beyond
// kSnapshotRows have no place and are left out). The Write command takes 00..13.
void FillWriteSnapshot(const CM330Doc& doc, WriteSnapshot& snapshot, int firstGroup = 0,
                       int lastGroup = 13);

// The progress label of a Write before group `group`: "00-XX -- Station Num:1".
QString WriteProgressLabel(int group, int station);

class CGroupWriter {
public:
    // `session` gives m_strLastError and receives m_nReg0002 after group 00's first frame.
    CGroupWriter(CDriveSerial& link, SessionState& session) : m_link(link), m_session(session) {}

    // Sends `count` converted values from position `first` of `values` as one function-16
    // frame to register group * 256 + first; the reply is 8 bytes. 1 or 0 with the text.
    int WriteValues(std::span<const quint16> values, int station, int group, int first, int count);

    // The routine of `group` (0..14) for `route`.
    int WriteGroup(int group, const WriteSnapshot& snapshot, int station,
                   WriteRoute route = WriteRoute::Command);

    int WriteGroup00(const WriteSnapshot& s, int station) { return WriteGroup(0, s, station); }
    int WriteGroup01(const WriteSnapshot& s, int station) { return WriteGroup(1, s, station); }
    int WriteGroup02(const WriteSnapshot& s, int station) { return WriteGroup(2, s, station); }
    int WriteGroup03(const WriteSnapshot& s, int station) { return WriteGroup(3, s, station); }
    int WriteGroup04(const WriteSnapshot& s, int station) { return WriteGroup(4, s, station); }
    int WriteGroup05(const WriteSnapshot& s, int station) { return WriteGroup(5, s, station); }
    int WriteGroup06(const WriteSnapshot& s, int station) { return WriteGroup(6, s, station); }
    int WriteGroup07(const WriteSnapshot& s, int station) { return WriteGroup(7, s, station); }
    int WriteGroup08(const WriteSnapshot& s, int station) { return WriteGroup(8, s, station); }
    int WriteGroup09(const WriteSnapshot& s, int station) { return WriteGroup(9, s, station); }
    int WriteGroup10(const WriteSnapshot& s, int station) { return WriteGroup(10, s, station); }
    int WriteGroup11(const WriteSnapshot& s, int station) { return WriteGroup(11, s, station); }
    int WriteGroup12(const WriteSnapshot& s, int station) { return WriteGroup(12, s, station); }
    // The Write command sends 13-05 and 13-06 only; the editor's transmit sends 13-03 to 13-06
    // and the reset code 13-08.
    int WriteGroup13(const WriteSnapshot& s, int station) { return WriteGroup(13, s, station); }
    int WriteGroup13Editor(const WriteSnapshot& s, int station) {
        return WriteGroup(13, s, station, WriteRoute::Editor);
    }
    // The simplified group: the editor's transmit only.
    int WriteGroupFxx(const WriteSnapshot& s, int station) {
        return WriteGroup(14, s, station, WriteRoute::Editor);
    }

    // The routines of groups 00..13 in order, as the Write command runs them.
    using Routine = int (CGroupWriter::*)(const WriteSnapshot&, int);
    static const std::array<Routine, 14>& CommandRoutines();

private:
    bool Fail(const QString& text);
    bool PreChecks(int group, const WriteSnapshot& snapshot, int station);
    bool FrameChecks(int group, int firstRow, const WriteSnapshot& snapshot, int station);
    bool ReadPartner(int station, quint16 reg, int& value);

    CDriveSerial& m_link;
    SessionState& m_session;
};

}  // namespace quillon
