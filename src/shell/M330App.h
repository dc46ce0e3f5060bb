#pragma once
// The application object: brings the program up in a fixed order, restores the communication
// settings of the last session, keeps the recent-project list, and is the last line of defence
// for errors: an exception that escapes any handler is shown to the person and the session
// goes on.

#include "shell/FrameFeatures.h"
#include "shell/RecentFileList.h"
#include "ui/QtPrompt.h"

#include <QApplication>
#include <QStringList>
#include <memory>

namespace quillon {

class CInstanceChannel;
class CMainFrame;

class CM330App : public QApplication {
    Q_OBJECT
public:
    struct Options {
        QString recentIniPath;  // empty: the standard settings place
        QString appDir;         // empty: the executable's directory
        bool showWindow = true;
        QStringList arguments;  // empty: the process's own command line
        bool singleInstance = false;  // hand a project to a running program, and serve others
    };

    CM330App(int& argc, char** argv, Options options);
    CM330App(int& argc, char** argv) : CM330App(argc, argv, Options{}) {}
    ~CM330App() override;

    void SetOptions(Options options) { m_options = std::move(options); }

    // Start-up in its fixed order. False: the program must end (HandedOver says whether a
    // running program took the project instead, which is no failure).
    bool InitInstance();
    bool HandedOver() const { return m_handedOver; }
    // Writes the recent-file list back.
    void ExitInstance();

    bool notify(QObject* receiver, QEvent* event) override;

    CMainFrame* MainFrame() const { return m_frame.get(); }
    CRecentFileList& RecentFiles() { return m_recent; }
    // What the subsystems add to every main frame; registered before InitInstance.
    CFrameFeatures& Features() { return m_features; }

    // File New: the model dialog, then a new project for the chosen model.
    void OnFileNew();
    // Opens a project file (command line, dropped file); false when it can't be opened.
    bool OpenDocumentFile(const QString& path);

    // A project another start handed over: the window comes to the front and the project opens
    // in it. While a dialog is up or a transaction with a drive runs, the open waits until
    // they are over: both may hold the project that opening would replace.
    void TakeHandedProject(const QString& path);

private:
    void OpenHandedProject();

    Options m_options;
    CRecentFileList m_recent;
    CFrameFeatures m_features;
    QtPrompt m_prompt;
    std::unique_ptr<CMainFrame> m_frame;
    IPrompt* m_previousPrompt = nullptr;
    std::unique_ptr<CInstanceChannel> m_instances;
    bool m_handedOver = false;
    QString m_strHandedPath;  // the last project handed over and not opened yet
};

}  // namespace quillon
