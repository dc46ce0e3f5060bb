#pragma once
// The Read and Write commands of the Run menu and the two password commands, in their fixed
// order of steps. They work on the session, the link and the project through ITransferWindows.
// Read and Write hand every transaction to ITransferWindows::LinkWork and do everything else
// (questions, the project, the progress window) themselves, in order, between those steps.
//
// Read: station, save question, identification, the catalogue for the drive's model, the
// fifteen group reads, read values to set values, factory defaults, "Read sucessful !".
// Write: station, then the guards in order (password on the drive, running drive, another
// model), then groups 00 to 13, "Write successful!".

#include "transfer/GroupWrite.h"

#include <QString>

namespace quillon {

struct SessionState;
class ITransferWindows;

// The station dialogs (CReadDlg, CStationSelectDlg): the prompt's station chooser, a drop-down
// "Station Num:" of the linked stations with the first selected, under these captions.
inline constexpr const char* kReadDlgCaption = "Read";
inline constexpr const char* kStationSelectCaption = "Station Select";

inline constexpr const char* kReadSuccessful = "Read sucessful !";
inline constexpr const char* kWriteSuccessful = "Write successful!";

class CTransferCommands {
public:
    CTransferCommands(SessionState& session, ITransferWindows& windows)
        : m_session(session), m_windows(windows) {}

    // True when the whole sequence ran to its success message.
    bool OnRead();
    bool OnWrite();
    void OnPasswordSet();
    void OnPasswordClear();

    // The station of the last Read, and the drive's version it found (also on the status bar).
    int ReadStation() const { return m_nReadStation; }
    float DriveVersion() const { return m_fVersion; }
    // Whether the last Write wrote motor data (group 02); clear after a model mismatch the
    // person accepted, until the next Write.
    int WriteMotorData() const { return m_bWriteMotorData; }
    // The set values the last Write sent.
    const WriteSnapshot& Snapshot() const { return m_snapshot; }

private:
    bool SaveBeforeRead();
    bool IdentifyForRead(int station, int& capacity);

    SessionState& m_session;
    ITransferWindows& m_windows;
    int m_nReadStation = 0;
    float m_fVersion = 0.0f;
    int m_bWriteMotorData = 1;
    WriteSnapshot m_snapshot;
};

}  // namespace quillon
