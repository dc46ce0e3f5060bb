#include "shell/M330App.h"

#include "base/CommSettings.h"
#include "base/Globals.h"
#include "shell/AboutDlg.h"
#include "shell/CommandIds.h"
#include "shell/HandOver.h"
#include "shell/MainFrame.h"
#include "shell/StartupArgs.h"
#include "ui/IconCachingStyle.h"

#include <exception>

namespace quillon {

CM330App::CM330App(int& argc, char** argv, Options options)
    : QApplication(argc, argv), m_options(std::move(options)), m_recent(m_options.recentIniPath) {
    setApplicationName(QStringLiteral("Quillon"));
    setOrganizationName(QStringLiteral("Local AppWizard-Generated Applications"));
    setWindowIcon(QIcon(ProgramPicture(48)));
    setStyle(new CIconCachingStyle);  // the application owns it
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
    m_frame.reset();
    m_frame = std::make_unique<CMainFrame>(m_recent, m_features);
    m_prompt.SetParent(m_frame.get());
    // 5. The program directory, with its closing separator.
    const QString appDir = m_options.appDir.isEmpty()
                               ? QCoreApplication::applicationDirPath() + u'/'
                               : m_options.appDir;
    m_frame->m_strAppDir = appDir;
    m_frame->Session().m_strAppDir = appDir;
    g_strAppDir = appDir;
    // 7. A project named on the command line is opened; a bare "/dde" opens nothing.
    const QString path = StartupProjectPath(m_options.arguments.isEmpty() ? arguments()
                                                                          : m_options.arguments);
    if (!path.isEmpty() && !OpenDocumentFile(path)) return false;
    // 8-10. The window, maximised. No keyboard layout is forced: key codes reach the program
    // unchanged whatever the input language.
    if (m_options.showWindow) m_frame->showMaximized();
    // 11. A project or a link handed over by another tool of the family.
    if (const auto handOver = TakeHandOverFile(HandOverFilePath()))
        HonourHandOver(*handOver, m_frame->Commands(), m_frame->LinkSession());
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
    if (m_frame) m_frame->OnCommand(CmdId::New);
}

bool CM330App::OpenDocumentFile(const QString& path) {
    return m_frame && m_frame->Commands().OpenProjectFile(path);
}

}  // namespace quillon
