#pragma once
// The group read: fifteen routines, one per parameter group 00 to 13 and one for the simplified
// group, each sending the read frames of its group (ReadLayout.h) in order with CommandSend and
// turning every register of a good reply into the display text of its row's read value.
//
// The link work and the document work are kept apart. ReadGroupRegisters only talks to the
// drive and keeps the raw register values; it touches nothing shared but the link, so the
// auto-refresh worker can run it while the interface thread owns the document. ApplyReadout
// then writes the texts into the rows, on the interface thread.

#include "transfer/ReadLayout.h"

#include <QString>
#include <QtGlobal>
#include <array>
#include <vector>

namespace quillon {

class CDriveSerial;
class CM330Doc;
class ITransferWindows;

struct RegisterValue {
    int row;
    quint16 value;
};

// What the frames of one group brought back, in the order they came.
struct GroupReadout {
    int group = 0;
    std::vector<RegisterValue> values;
};

// Sends the read frames of `group` to `station` in order and appends every register of each
// good reply to `out`. At the first failed frame it stops with the text to show in `error`
// (the word of the group-read caller) and returns false; the frames before it stay in `out`.
bool ReadGroupRegisters(CDriveSerial& link, int station, int group, GroupReadout& out,
                        QString& error);

// Writes the display text of every value into its row's read value, and only there. A row the
// document doesn't have raises the range failure.
void ApplyReadout(CM330Doc& doc, const GroupReadout& readout);

// The progress window's title over a full read.
inline constexpr const char* kReadProgressTitle = "Read Inverter function parameter...,";

// The fifteen group reads of `station` under the windows' progress window: range 0 to 15, the
// label before each group, the position after each. Each group's frames go out as link work of
// `windows`; its values reach the rows here, on the interface thread, before the next group, and
// what came before a failed frame is kept. The first failure hides the window and leaves its
// text in `lastError`. The Read and Compare commands share it.
bool ReadAllGroups(ITransferWindows& windows, CDriveSerial& link, CM330Doc& doc, int station,
                   QString& lastError);

// The project becomes what the drive holds: every row's read value becomes its set value, and
// the changed marks clear. The Read command copies the rows of the catalogue only, auto refresh
// every row.
void CopyReadToSetValues(CM330Doc& doc, bool existingOnly = true);

// The progress label before group index `group` of a full read: "00-XX --" ... "13-XX --", or
// "Fxx --", then "Station Num:" and the station.
QString ReadProgressLabel(int group, int station);

// The group routines of the Read command, over one link and one document. Each returns 1 on
// success; on failure 0 with the text in `lastError` (the session's m_strLastError). The rows of
// the frames before a failure keep their new read values.
class CGroupReader {
public:
    CGroupReader(CDriveSerial& link, CM330Doc& doc, QString& lastError)
        : m_link(link), m_doc(doc), m_strLastError(lastError) {}

    int ReadGroup(int group, int station);

    int ReadGroup00(int station) { return ReadGroup(0, station); }
    int ReadGroup01(int station) { return ReadGroup(1, station); }
    int ReadGroup02(int station) { return ReadGroup(2, station); }
    int ReadGroup03(int station) { return ReadGroup(3, station); }
    int ReadGroup04(int station) { return ReadGroup(4, station); }
    int ReadGroup05(int station) { return ReadGroup(5, station); }
    int ReadGroup06(int station) { return ReadGroup(6, station); }
    int ReadGroup07(int station) { return ReadGroup(7, station); }
    int ReadGroup08(int station) { return ReadGroup(8, station); }
    int ReadGroup09(int station) { return ReadGroup(9, station); }
    int ReadGroup10(int station) { return ReadGroup(10, station); }
    int ReadGroup11(int station) { return ReadGroup(11, station); }
    int ReadGroup12(int station) { return ReadGroup(12, station); }
    int ReadGroup13(int station) { return ReadGroup(13, station); }
    int ReadGroupFxx(int station) { return ReadGroup(14, station); }

private:
    CDriveSerial& m_link;
    CM330Doc& m_doc;
    QString& m_strLastError;
};

}  // namespace quillon
