#pragma once
// The change of communication parameters: the first linked station is told to take another
// station number, baud rate, stop bits and parity (registers 09-00 to 09-05 in one frame), and
// the link follows it. The only way in which the program writes those registers; the Write
// command leaves them alone.
//
// Kept as they have always been: the parity list of the dialog opens crossed against the
// session (the session's odd shows as list entry 1, which reads "even"), the link is reopened
// with 8 data bits whatever the session held, as "COM%d" of the session's port number plus one
// without the prefix of ports above COM9, so a link through a network module comes back as
// "COM0".

#include <QString>

namespace quillon {

struct SessionState;
class ITransferWindows;

inline constexpr int kCommFrameRegisters = 6;

// The dialog's values: the station field and the three list indices.
struct CommParamChoice {
    int station = 1;
    int baudIndex = 2;   // 0:4800 1:9600 2:19200 3:38400
    int stopIndex = 1;   // 0: one stop bit, 1: two
    int parityList = 0;  // 0 none, 1 even, 2 odd, as the list reads
};

// The choice the dialog opens with: the session's baud and stop indices, and the parity list
// entry of the session's parity (none 0, odd 1, even 2).
CommParamChoice InitialCommChoice(int station);

// The session's parity index (0 even, 1 odd, 2 none) of a parity list entry, and the parity
// the link opens with (0 none, 1 odd, 2 even).
int SessionParityOfList(int parityList);
unsigned char LinkParityOfList(int parityList);

// The station field after a change from `previous` to `typed`: a non-empty text is taken over
// only when its number lies in 1 to 32, otherwise the field returns to its previous number.
QString FilterStationField(const QString& previous, const QString& typed);

// The OK of the dialog: sends the frame to the first linked station and, when the drive took
// it, reopens the link at the new settings and reads the drive back there. True when the dialog
// may close: the link works at the new settings, which the session then keeps. Every failure has
// been told by message.
bool ApplyCommChange(SessionState& session, ITransferWindows& windows,
                     const CommParamChoice& choice);

}  // namespace quillon
