#include "shell/ProjectCommands.h"

#include "base/Globals.h"
#include "base/PathName.h"
#include "base/Prompt.h"
#include "base/SafeSave.h"
#include "base/StatusPanes.h"
#include "base/TextTable.h"
#include "params/ModelTable.h"
#include "params/ProjectFile.h"

namespace quillon {
namespace {

// A New or Open changes the session (model, path, graph curves...) while it builds the next
// document. If it doesn't get to the end, the session goes back to what the open project had.
class SessionRollback {
public:
    explicit SessionRollback(SessionState& session)
        : m_session(session), m_saved(session), m_fileVersion(g_nFileVersion) {}
    ~SessionRollback() {
        if (m_committed) return;
        m_session = m_saved;
        g_nFileVersion = m_fileVersion;
    }
    SessionRollback(const SessionRollback&) = delete;
    SessionRollback& operator=(const SessionRollback&) = delete;
    void Commit() { m_committed = true; }

private:
    SessionState& m_session;
    SessionState m_saved;
    int m_fileVersion;
    bool m_committed = false;
};

QString NewProjectTitle() { return QString::fromLatin1(kNewProjectTitle); }

}  // namespace

QString ProjectFileFilter() {
    const QString pattern = QStringLiteral("*.") + QLatin1String(kProjectExtension);
    return QStringLiteral("Project File(%1)").arg(pattern);
}

CProjectCommands::CProjectCommands(SessionState& session, CRecentFileList& recent,
                                   IProjectWindows& windows)
    : m_session(session), m_recent(recent), m_windows(windows) {}

CProjectCommands::~CProjectCommands() = default;

QString CProjectCommands::ProjectFileName() const {
    return FileNameOfPath(m_session.m_strProjectPath);
}

bool CProjectCommands::RefusedUnderAutoRefresh() const {
    if (!m_session.m_bAutoRefresh) return false;
    // The refresh worker reads and writes the rows: the document can't be replaced under it.
    Prompt().Message(LoadText(TextId::AutoRefreshRunning));
    return true;
}

void CProjectCommands::OnFileNew() {
    if (RefusedUnderAutoRefresh()) return;
    if (!SaveModified()) return;

    SessionRollback rollback(m_session);
    if (!m_windows.RunModelSelect()) return;
    int code = -1;
    QString capacity;
    ModelFromName(m_session.m_strModelName.trimmed(), code, capacity);
    if (code < 0) return;  // not one of the 19 models: nothing happens
    m_session.m_nModelCode = code;
    TakeNewDocument();
    rollback.Commit();
    m_windows.RebuildTree();
}

void CProjectCommands::NewDocumentForLinkedDrive() {
    SessionRollback rollback(m_session);
    TakeNewDocument();
    rollback.Commit();
    m_windows.RebuildTree();
}

void CProjectCommands::TakeNewDocument() {
    m_session.m_strProjectPath.clear();
    m_session.m_nCurGroup = -1;
    auto doc = std::make_unique<CM330Doc>(m_session);
    doc->OnNewDocument();
    TakeDocument(std::move(doc), NewProjectTitle());
}

void CProjectCommands::OnFileOpen() {
    if (RefusedUnderAutoRefresh()) return;
    if (!SaveModified()) return;
    const QString path = Prompt().OpenFileName(QStringLiteral("Open"), ProjectFileFilter(),
                                               QLatin1String(kProjectExtension));
    if (path.isEmpty()) return;
    OpenPath(path, false);
}

void CProjectCommands::OnOpenRecentFile(int index) { OpenRecentFile(m_recent.At(index)); }

bool CProjectCommands::OpenRecentFile(const QString& path) {
    if (path.isEmpty()) return false;
    if (RefusedUnderAutoRefresh()) return false;
    if (!SaveModified()) return false;
    return OpenPath(path, true);
}

bool CProjectCommands::OpenProjectFile(const QString& path) {
    if (path.isEmpty()) return false;
    if (RefusedUnderAutoRefresh()) return false;
    if (!SaveModified()) return false;
    return OpenPath(path, false);
}

bool CProjectCommands::OpenPath(const QString& path, bool fromRecentList) {
    SessionRollback rollback(m_session);
    if (fromRecentList) m_session.m_strProjectPath = path;
    m_session.m_nCurGroup = -1;
    std::unique_ptr<CM330Doc> doc = OnOpenDocument(path);
    if (!doc) {
        if (fromRecentList) {
            m_recent.Remove(path);
            m_windows.RecentListChanged();
        }
        return false;
    }
    TakeDocument(std::move(doc), ProjectFileName());
    rollback.Commit();
    m_recent.Add(path);
    m_windows.RecentListChanged();
    m_windows.RebuildTree();
    return true;
}

std::unique_ptr<CM330Doc> CProjectCommands::OnOpenDocument(const QString& path) {
    // Checked again here for the ways in that don't pass through the commands.
    if (RefusedUnderAutoRefresh()) return nullptr;
    auto doc = std::make_unique<CM330Doc>(m_session);
    const ProjectOpenResult result = OpenProjectDocument(*doc, path);
    if (!result.ok) {
        Prompt().Message(
            LoadText(TextId::CantOpenFile) + QStringLiteral("\n\n%1\n%2").arg(path, result.error),
            MessageKind::Error);
        return nullptr;
    }
    m_session.m_strProjectPath = path;
    m_windows.RebuildTree();
    return doc;
}

void CProjectCommands::TakeDocument(std::unique_ptr<CM330Doc> doc, const QString& title) {
    // The new window stands before the old one (and with it the old document) goes.
    m_windows.ShowProjectWindow(*doc);
    m_doc = std::move(doc);
    m_windows.SetProjectWindowTitle(title);
    ShowProjectPanes();
}

void CProjectCommands::ShowProjectPanes() {
    // Without a project both panes show their labels alone; a project without a path yet is
    // the new project.
    QString name;
    if (m_doc) name = m_session.m_strProjectPath.isEmpty() ? NewProjectTitle() : ProjectFileName();
    m_windows.SetStatusPane(Pane::FileName, name);
    m_windows.SetStatusPane(Pane::Model, m_doc ? m_session.m_strModelName : QString());
}

void CProjectCommands::DropDocument() {
    m_windows.DestroyProjectWindow();
    m_doc.reset();
    m_session.m_strProjectPath.clear();
    m_session.m_strModelName.clear();
}

CProjectCommands::SaveResult CProjectCommands::SaveDocument(bool askForPath) {
    if (!m_doc) return SaveResult::Failed;
    QString path = m_session.m_strProjectPath;
    if (askForPath || path.isEmpty()) {
        path = Prompt().SaveFileName(QStringLiteral("Save As"), ProjectFileFilter(),
                                     QLatin1String(kProjectExtension), path);
        if (path.isEmpty()) return SaveResult::Cancelled;
    }
    QString error;
    if (!SaveProjectDocument(*m_doc, path, error)) {
        // Without a path the next Save asks for one.
        m_session.m_strProjectPath.clear();
        Prompt().Message(SaveFailureText(path, error), MessageKind::Error);
        return SaveResult::Failed;
    }
    m_session.m_strProjectPath = path;
    m_doc->SetModifiedFlag(false);
    m_recent.Add(path);
    m_windows.RecentListChanged();
    if (m_windows.HasProjectWindow()) m_windows.SetProjectWindowTitle(ProjectFileName());
    ShowProjectPanes();
    return SaveResult::Saved;
}

void CProjectCommands::OnFileSave() { SaveDocument(false); }

void CProjectCommands::OnFileSaveAs() { SaveDocument(true); }

bool CProjectCommands::SaveModified() {
    if (!m_doc || !m_doc->IsModified()) return true;
    switch (Prompt().YesNoCancel(QString::fromLatin1(kSaveModifiedQuestion))) {
        case Answer::No:
            return true;
        case Answer::Yes:
            return SaveDocument(false) != SaveResult::Cancelled;
        default:
            return false;
    }
}

void CProjectCommands::OnFileClose() {
    if (!m_doc) return;
    if (!SaveModified()) return;
    DropDocument();
    m_windows.ClearTree();
    ShowProjectPanes();
}

bool CProjectCommands::OnProjectWindowClose() {
    m_windows.ClearTree();
    if (!SaveModified()) return false;
    DropDocument();
    ShowProjectPanes();
    return true;
}

bool CProjectCommands::CanCloseFrame() {
    if (m_session.m_bAutoRefresh && m_windows.HasProjectWindow()) m_windows.StopAutoRefresh();
    return SaveModified();
}

}  // namespace quillon
