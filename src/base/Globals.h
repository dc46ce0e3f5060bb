#pragma once
// Process-wide communication settings and the program directory. They are created before the
// main frame and read by the connection dialog, the session files and the catalogue readers.
// Only the interface thread touches them.

#include <QString>

namespace quillon {

extern int g_nComPort;         // serial port number minus one (0 = COM1); -1 for TCP/IP
extern int g_nBaudIndex;       // 0 = 4800, 1 = 9600, 2 = 19200, 3 = 38400
extern int g_nDataBitsIndex;   // 0 = 7 data bits, 1 = 8 data bits
extern int g_nParityIndex;     // 0 = even, 1 = odd, 2 = none
extern int g_nStopBitsIndex;   // 0 = 1 stop bit, 1 = 2 stop bits
extern QString g_strStationList;  // the station list as the user typed it
extern QString g_strAppDir;    // the program's directory, with its closing separator (data files
                               // are looked up from it: DataFiles.h)
extern int g_nFileVersion;     // version of the last project file loaded

// Puts every value above back to its initial value (start of a session; tests).
void ResetGlobals();

}  // namespace quillon
