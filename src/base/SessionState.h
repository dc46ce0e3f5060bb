#pragma once
// What a session remembers between commands: the project's model and frequency class, the link
// and its stations, which groups the view shows. The main frame owns one; the document and the
// command logic read and change it without needing a window.

#include "base/GraphSettings.h"

#include <QString>
#include <vector>

namespace quillon {

inline constexpr int kDefaultModelCode = 1205;  // assumed until a model has been chosen

struct SessionState {
    int m_nModelCode = kDefaultModelCode;
    QString m_strModelName;        // display name; empty until a model is chosen
    int m_nFreqClass = 0;          // 0 = 50 Hz, 1 = 60 Hz
    QString m_strAppDir;           // program directory with its closing separator
    QString m_strProjectPath;      // empty for a new project
    int m_nCurGroup = -1;          // -1 all groups, 0..13 one group, 14 simplified
    int m_bCompleteParams = 1;     // 1 complete groups, 0 the simplified group
    int m_bOnline = 0;
    int m_bAutoRefresh = 0;
    int m_bReading = 0;            // a group read is under way: auto refresh can't be toggled
    int m_bWriting = 0;            // a group write is under way: the same
    int m_nRefreshStation = -1;
    int m_nReg0002 = 0;            // run source 00-02 as read at identification
    int m_nModelWord = 0;          // the last value of the model word (0x252F)
    int m_bTcpLinked = 0;          // the link goes through a network module
    QString m_strStationText;      // the stations as the status bar shows them
    std::vector<int> m_stations;   // the linked stations in the order typed
    std::vector<int> m_stationCapacities;  // their model codes (13-00), same order
    std::vector<int> m_stationVersions;    // their software versions in thousandths, same order
    QString m_strLastError;        // what the last failed group routine left to be shown
    GraphSettings m_graphSettings;  // the graph watch's curves; kept in the project file
};

}  // namespace quillon
