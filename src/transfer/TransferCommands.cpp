#include "transfer/TransferCommands.h"

#include "base/Prompt.h"
#include "base/SessionState.h"
#include "base/StatusPanes.h"
#include "base/TextTable.h"
#include "link/DriveSerial.h"
#include "link/RegisterReaders.h"
#include "params/M330Doc.h"
#include "params/ModelLimits.h"
#include "params/ModelTable.h"
#include "params/ParamNames.h"
#include "transfer/GroupRead.h"
#include "transfer/Password.h"
#include "transfer/TransferWindows.h"
#include "transfer/WriteGuards.h"

namespace quillon {
namespace {

const char* const kWriteProgressTitle = "Write Inverter function parameter...,";
const char* const kModelMismatch = "Inverter's type may be not match you select type.Continue ?";
constexpr int kMotorGroup = 2;

void ShowProgress(IProgress& progress, const char* title) {
    if (!progress.IsVisible()) progress.Show(QString::fromLatin1(title));
}

// The initial table refreshes the factory defaults only: the set values are what the drive
// holds.
void LoadFactoryDefaults(CM330Doc& doc) {
    const int applyToSetValue = doc.m_bApplyToSetValue;
    doc.m_bApplyToSetValue = 0;
    doc.LoadInitialTable(CM330Doc::InitialTablePath());
    doc.m_bApplyToSetValue = applyToSetValue;
}

}  // namespace

bool CTransferCommands::SaveBeforeRead() {
    CM330Doc* doc = m_windows.Document();
    if (!doc || !doc->IsModified()) return true;
    switch (Prompt().YesNoCancel(QString::fromLatin1(kSaveModifiedQuestion))) {
    case Answer::Yes:
        return m_windows.SaveProject();
    case Answer::No:
        doc->SetModifiedFlag(false);
        return true;
    default:
        return false;
    }
}

bool CTransferCommands::IdentifyForRead(int station, int& capacity) {
    CDriveSerial* link = m_windows.Link();
    if (!link) return false;
    int modelWord = 0;
    float version = 0.0f;
    // Each reader has told its failure already.
    if (!OnLink(m_windows, [&] {
            return ReadModelWord(*link, station, modelWord) &&
                   ReadCapacity(*link, station, capacity) && ReadVersion(*link, station, version);
        }))
        return false;
    m_session.m_nModelWord = modelWord;
    m_fVersion = version;
    return true;
}

bool CTransferCommands::OnRead() {
    const std::optional<int> station =
        Prompt().ChooseStation(QString::fromLatin1(kReadDlgCaption), m_session.m_stations);
    if (!station) return false;
    // The flag stays up when the command ends early below: auto refresh can't be started
    // until a Read has run through.
    m_session.m_bReading = 1;
    m_nReadStation = *station;
    if (!SaveBeforeRead()) return false;

    int capacity = 0;
    if (!IdentifyForRead(m_nReadStation, capacity)) return false;

    IProgress& progress = m_windows.Progress();
    ShowProgress(progress, kReadProgressTitle);
    QString capacityText;
    m_session.m_strModelName = ModelNameFromCode(capacity, capacityText);
    m_session.m_nModelCode = capacity;

    CM330Doc* doc = m_windows.Document();
    if (!doc) doc = m_windows.NewDocumentForDrive();
    CDriveSerial* link = m_windows.Link();
    if (!doc || !link) {
        progress.Hide();
        m_session.m_bReading = 0;
        return false;
    }
    doc->ReloadCatalogue();
    doc->ApplyRatedDefaults(false);

    if (!ReadAllGroups(m_windows, *link, *doc, m_nReadStation, m_session.m_strLastError)) {
        Prompt().Message(m_session.m_strLastError);
        m_session.m_bReading = 0;
        return false;
    }
    // The project now is what the drive holds.
    CopyReadToSetValues(*doc);
    doc->SetModifiedFlag(true);
    progress.Hide();
    m_session.m_bReading = 0;

    LoadFactoryDefaults(*doc);
    m_windows.RefreshList();
    m_windows.SetStatusPane(Pane::Model, m_session.m_strModelName);
    m_windows.SetStatusPane(Pane::Version, QString::asprintf("%.3f", double(m_fVersion)));
    Prompt().Message(QString::fromLatin1(kReadSuccessful), MessageKind::Information);
    return true;
}

bool CTransferCommands::OnWrite() {
    m_bWriteMotorData = 1;
    const std::optional<int> station =
        Prompt().ChooseStation(QString::fromLatin1(kStationSelectCaption), m_session.m_stations);
    CM330Doc* doc = m_windows.Document();
    CDriveSerial* link = m_windows.Link();
    if (!station || !doc || !link) return false;
    const int st = *station;

    if (!PassWriteGuards(*link, st, [&](const auto& step) { return OnLink(m_windows, step); }))
        return false;
    int modelWord = 0;
    int capacity = 0;
    if (!OnLink(m_windows, [&] {
            return ReadModelWord(*link, st, modelWord) && ReadCapacity(*link, st, capacity);
        }))
        return false;
    m_session.m_nModelWord = modelWord;
    bool writeMotor = true;
    if (capacity != m_session.m_nModelCode) {
        if (VoltageClass(capacity) != VoltageClass(m_session.m_nModelCode)) {
            Prompt().Message(LoadText(TextId::VoltageClassMismatch));
            return false;
        }
        if (Prompt().YesNo(QString::fromLatin1(kModelMismatch)) != Answer::Yes) return false;
        // Another drive of the same class keeps its own motor data.
        writeMotor = false;
    }
    float version = 0.0f;
    if (!OnLink(m_windows, [&] { return ReadVersion(*link, st, version); })) return false;
    m_fVersion = version;
    m_snapshot = WriteSnapshot{};
    FillWriteSnapshot(*doc, m_snapshot);

    IProgress& progress = m_windows.Progress();
    ShowProgress(progress, kWriteProgressTitle);
    if (!writeMotor) m_bWriteMotorData = 0;
    progress.SetRange(0, static_cast<int>(doc->m_groups.size()));
    progress.SetPos(0);
    m_session.m_bWriting = 1;

    // The writer works as link work, on a session of its own; the error text and 00-02 it
    // leaves there come back after each group.
    SessionState writerSession = m_session;
    CGroupWriter writer(*link, writerSession);
    const auto& routines = CGroupWriter::CommandRoutines();
    for (int g = 0; g < static_cast<int>(routines.size()); ++g) {
        progress.SetLabel(WriteProgressLabel(g, st));
        const bool skipped = g == kMotorGroup && !m_bWriteMotorData;
        const auto routine = routines[static_cast<std::size_t>(g)];
        const bool ok = skipped || OnLink(m_windows, [&] {
                            return (writer.*routine)(m_snapshot, st) != 0;
                        });
        m_session.m_strLastError = writerSession.m_strLastError;
        m_session.m_nReg0002 = writerSession.m_nReg0002;
        if (!ok) {
            m_session.m_bWriting = 0;
            progress.Hide();
            // A reader that failed inside the routine has told its failure itself.
            if (!m_session.m_strLastError.isEmpty()) Prompt().Message(m_session.m_strLastError);
            return false;
        }
        progress.SetPos(g + 1);
    }
    doc->MarkWritten(-1);
    m_windows.RefreshList();
    m_session.m_bWriting = 0;
    progress.Hide();
    if (!m_bWriteMotorData) m_windows.ShowUnwrittenParams(MotorListInLanguage(*doc));
    Prompt().Message(QString::fromLatin1(kWriteSuccessful), MessageKind::Information);
    return true;
}

void CTransferCommands::OnPasswordSet() { RunPasswordSet(m_session, m_windows); }

void CTransferCommands::OnPasswordClear() { RunPasswordClear(m_session, m_windows); }

}  // namespace quillon
