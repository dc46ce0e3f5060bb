#include "exchange/CompareCommand.h"

#include "base/Prompt.h"
#include "base/SessionState.h"
#include "link/DriveSerial.h"
#include "transfer/GroupRead.h"
#include "transfer/TransferCommands.h"
#include "transfer/TransferWindows.h"

namespace quillon {

bool CCompareCommand::ReadDrive(int station) {
    CM330Doc* doc = m_transfer.Document();
    CDriveSerial* link = m_transfer.Link();
    if (!doc || !link) return false;
    IProgress& progress = m_transfer.Progress();
    if (!progress.IsVisible()) progress.Show(QString::fromLatin1(kReadProgressTitle));
    // Auto refresh can't be switched while the read runs.
    m_session.m_bReading = 1;
    // The frames go out as link work, the way the Read command sends them.
    const bool ok = ReadAllGroups(m_transfer, *link, *doc, station, m_session.m_strLastError);
    m_session.m_bReading = 0;
    progress.Hide();
    if (!ok) Prompt().Message(m_session.m_strLastError);
    return ok;
}

bool CCompareCommand::OnCompare() {
    CM330Doc* doc = m_transfer.Document();
    if (!doc) return false;
    const bool linked = m_session.m_bOnline && m_transfer.Link();
    const std::optional<int> mode = m_windows.ChooseCompareMode(linked);
    if (!mode) return false;
    m_nMode = linked ? *mode : kCompareDefaultSet;
    if (m_nMode != kCompareDefaultSet) {
        const std::optional<int> station =
            Prompt().ChooseStation(QString::fromLatin1(kReadDlgCaption), m_session.m_stations);
        if (!station) return false;
        m_nStation = *station;
        if (!ReadDrive(m_nStation)) return false;
    }
    m_result = CompareRows(*doc, m_nMode);
    m_windows.ShowCompare(m_nMode, m_result);
    return true;
}

}  // namespace quillon
