#pragma once
// The hand-over file curfile.ini: another tool of the family leaves it in the temporary
// directory to pass on a project or the serial link it had in use. Start-up reads it, deletes
// it whatever it holds, and honours it with no dialog at all. Its first line is the mode:
//   "0"  nothing to do
//   "1"  open a project: line 2 is its path
//   "2"  take over a serial link: line 2 the port ("COM3"), line 3 the baud rate in decimal,
//        line 4 three digits (data bits, parity 0 none / 1 odd / 2 even, stop bits), line 5
//        the station, line 6 the frequency class (0 = 50 Hz, 1 = 60 Hz)
// Anything else is nothing to do. This program only reads the file; it never writes one.

#include <QString>
#include <optional>
#include <vector>

namespace quillon {

class CLinkSession;
class CProjectCommands;

// The temporary directory followed by "/curfile.ini".
QString HandOverFilePath();

// The file's lines, after which the file is gone; nullopt when it can't be opened.
std::optional<std::vector<QString>> TakeHandOverFile(const QString& path);

// What a mode 2 file asks for.
struct LinkHandOver {
    QString portName;
    int comNumber = 0;       // the number from the port name's fourth character on
    int baud = 0;            // as written, also a rate the drive doesn't offer
    int dataBits = 0;        // the raw digits of line 4, -1 where there is none
    int parity = 0;
    int stopBits = 0;
    QString stationText;
    int station = 0;
    int freqClass = 0;
};
LinkHandOver ParseLinkHandOver(const std::vector<QString>& lines);

// Puts a mode 2 hand-over's line settings into the session's settings: the baud index from the
// rate (4800, 9600, 38400; 19200 and every other rate give index 2), the three indices from
// their digits (any other digit leaves an index as it was), the port number, the station text.
void ApplyLinkHandOverSettings(const LinkHandOver& handOver);

// Honours the lines of a hand-over file. Mode 2 opens the link with exactly what the file says
// and identifies the drive; on success a new project for its model stands and the status bar
// shows version, station, model and "Online". A port that can't be opened or a drive that
// doesn't answer leaves the session offline with one message.
void HonourHandOver(const std::vector<QString>& lines, CProjectCommands& commands,
                    CLinkSession& link);

}  // namespace quillon
