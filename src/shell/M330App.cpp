#include "shell/M330App.h"

#include "base/CommSettings.h"
#include "base/ErrorReport.h"
#include "base/Globals.h"
#include "link/LinkWork.h"
#include "shell/AboutDlg.h"
#include "shell/CommandIds.h"
#include "shell/HandOver.h"
#include "shell/InstanceChannel.h"
#include "shell/LanguageSwitch.h"
#include "shell/MainFrame.h"
#include "shell/StartupArgs.h"
#include "ui/IconCachingStyle.h"

#include <QFileInfo>
#include <QTimer>
#include <exception>
#include <utility>

namespace quillon {
namespace {

// How often a handed-over project looks again whether the program is free to open it.
constexpr int kHandOverRetryMs = 200;

}  // namespace

CM330App::CM330App(int& argc, char** argv, Options options)
    : QApplication(argc, argv), m_options(std::move(options)), m_recent(m_options.recentIniPath) {
    setApplicationName(QStringLiteral("Quillon"));
    setWindowIcon(QIcon(ProgramPicture(48)));
    setStyle(new CIconCachingStyle);  // the application owns it
    m_previousPrompt = SetPrompt(&m_prompt);
}

CM330App::~CM330App() {
    SetPrompt(m_previousPrompt);
    m_instances.reset();
    m_frame.reset();
}

bool CM330App::InitInstance() {
    // 0. A project opened from the file manager goes to the program already running, if any.
    const QString path = StartupProjectPath(m_options.arguments.isEmpty() ? arguments()
                                                                          : m_options.arguments);
    if (m_options.singleInstance) {
        const QString name = CInstanceChannel::DefaultName();
        if (!path.isEmpty() && CInstanceChannel::HandTo(name, QFileInfo(path).absoluteFilePath())) {
            m_handedOver = true;
            return false;
        }
        m_instances = std::make_unique<CInstanceChannel>(name);
        connect(m_instances.get(), &CInstanceChannel::ProjectHandedOver, this,
                [this](const QString& handed) { TakeHandedProject(handed); });
        m_instances->Listen();  // without it, each start simply stays on its own
    }
    // 1. The recent-project list of the last session.
    m_recent.ReadList();
    // 1a. The language chosen last time, or the desktop's.
    ApplyLanguage(ReadLanguageSetting(LanguageIniPath(m_recent.IniPath())));
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

void CM330App::TakeHandedProject(const QString& path) {
    if (!m_frame) return;
    if (m_frame->isMinimized()) m_frame->showMaximized();
    m_frame->raise();
    m_frame->activateWindow();
    const bool waiting = !m_strHandedPath.isEmpty();
    m_strHandedPath = path;  // of several handed over meanwhile, the last one counts
    if (!waiting) OpenHandedProject();
}

void CM330App::OpenHandedProject() {
    if (!m_frame || m_strHandedPath.isEmpty()) return;
    if (activeModalWidget() || LinkWorkRunning()) {
        QTimer::singleShot(kHandOverRetryMs, this, [this] { OpenHandedProject(); });
        return;
    }
    const QString path = std::exchange(m_strHandedPath, QString());
    GuardedCall([&] { OpenDocumentFile(path); });
    m_frame->UpdateCommandUI();
}

}  // namespace quillon
