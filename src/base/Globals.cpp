#include "base/Globals.h"

namespace quillon {

int g_nComPort = 0;
int g_nBaudIndex = 2;
int g_nDataBitsIndex = 1;
int g_nParityIndex = 2;
int g_nStopBitsIndex = 1;
QString g_strStationList;
QString g_strAppDir;
int g_nFileVersion = 2;

void ResetGlobals() {
    g_nComPort = 0;
    g_nBaudIndex = 2;
    g_nDataBitsIndex = 1;
    g_nParityIndex = 2;
    g_nStopBitsIndex = 1;
    g_strStationList.clear();
    g_strAppDir.clear();
    g_nFileVersion = 2;
}

}  // namespace quillon
