#include "shell/M330App.h"

#include "params/M330Doc.h"
#include "params/ModelSelectDlg.h"
#include "params/ModelTable.h"
#include "shell/CommSettings.h"
#include "shell/Globals.h"
#include "shell/MainFrame.h"
#include "shell/StartupArgs.h"
#include "shell/TextTable.h"

#include <exception>

namespace quillon {

CM330App::CM330App(int& argc, char** argv, Options options)
    : QApplication(argc, argv), m_options(std::move(options)), m_recent(m_options.recentIniPath) {
    setApplicationName(QStringLiteral("Quillon"));
    setOrganizationName(QStringLiteral("Local AppWizard-Generated Applications"));
    m_previousPrompt = SetPrompt(&m_prompt);
}

CM330App::~CM330App() {
    SetPrompt(m_previousPrompt);
    m_frame.reset();
}

bool CM330App::InitInstance() {
    // 1. The recent-project list of the last session.
    m_recent.ReadList();
    // 2. The texts are built into the program, so there is no resource module to fail.
    // 3-4. The main frame.
    m_frame = std::make_unique<CMainFrame>();
    m_prompt.SetParent(m_frame.get());
    connect(m_frame.get(), &CMainFrame::FileNewRequested, this, &CM330App::OnFileNew);
    // 5. The program directory, with its closing separator.
    const QString appDir = m_options.appDir.isEmpty()
                               ? QCoreApplication::applicationDirPath() + u'/'
                               : m_options.appDir;
    m_frame->m_strAppDir = appDir;
    m_frame->Session().m_strAppDir = appDir;
    g_strAppDir = appDir;
    // 7. A project named on the command line is opened; a bare "/dde" opens nothing.
    const QString path = StartupProjectPath(arguments());
    if (!path.isEmpty() && !OpenDocumentFile(path)) return false;
    // 8-10. The window, maximised. The keyboard-layout switch of the desktop original has no
    // counterpart here: key codes reach the program unchanged whatever the input language.
    if (m_options.showWindow) m_frame->showMaximized();
    // 12. The line settings of the last accepted link.
    LoadCommSettings();
    return true;
}

void CM330App::ExitInstance() { m_recent.WriteList(); }

bool CM330App::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& e) {
        // No handler lets an error end the session: the person sees it and goes on working.
        Prompt().Message(QString::fromUtf8(e.what()), MessageKind::Error);
    }
    return false;
}

void CM330App::OnFileNew() {
    if (!m_frame) return;
    SessionState& session = m_frame->Session();
    if (session.m_bAutoRefresh) {
        Prompt().Message(LoadText(TextId::AutoRefreshRunning));
        return;
    }
    CModelSelectDlg dlg(session, m_frame->m_strAppDir, m_frame.get());
    if (dlg.exec() != QDialog::Accepted) return;
    int code = -1;
    QString capacity;
    ModelFromName(session.m_strModelName.trimmed(), code, capacity);
    if (code < 0) return;  // not one of the known models: nothing happens
    session.m_nModelCode = code;
    session.m_strProjectPath.clear();
    session.m_nCurGroup = -1;
    auto doc = std::make_unique<CM330Doc>(session);
    doc->OnNewDocument();
    m_frame->SetDocument(std::move(doc));
    m_frame->SetStatusPane(0, QStringLiteral("New Project"));
    m_frame->SetStatusPane(3, session.m_strModelName);
}

bool CM330App::OpenDocumentFile(const QString& path) {
    Q_UNUSED(path);
    // Project files are read by the project-file layer once it is part of the program; until
    // then every open fails the way an unreadable file does.
    Prompt().Message(LoadText(TextId::CantOpenFile));
    return false;
}

}  // namespace quillon
