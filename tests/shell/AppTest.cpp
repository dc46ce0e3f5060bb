// The application object: start-up order, the command line, and the last-resort handler that
// keeps the session alive when a handler fails.

#include "base/CommSettings.h"
#include "base/ErrorReport.h"
#include "base/Globals.h"
#include "params/ProjectFile.h"
#include "shell/InstanceChannel.h"
#include "shell/M330App.h"
#include "shell/MainFrame.h"
#include "support/ScriptedPrompt.h"
#include "support/TestDirs.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QDialog>
#include <QPushButton>
#include <QTimer>
#include <QTest>
#include <gtest/gtest.h>
#include <cstring>
#include <future>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace quillon;
using quillon::test::ScriptedPrompt;

namespace {
CM330App& App() { return *static_cast<CM330App*>(QCoreApplication::instance()); }
}  // namespace

TEST(App, GuardedSlotReportsTheErrorBeforeItReachesQt) {
    ScriptedPrompt prompt;
    QPushButton button("Read");
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, Guarded([&] {
        ++clicks;
        throw std::out_of_range("invalid vector<T> subscript");
    }));
    button.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&button));
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(prompt.Messages(), (QStringList{"invalid vector<T> subscript", "invalid vector<T> subscript"}));
}

TEST(App, StartUpSetsTheProgramDirectoryAndRestoresTheLineSettings) {
    quillon::test::TempAppDir dir;
    dir.Write("kcomfile.ini", "3\n1\n100\n1,2\n");
    ResetGlobals();
    App().SetOptions({dir.Path() + "recent.ini", dir.Path(), /*showWindow=*/false, {}});

    ScriptedPrompt prompt;  // start-up without a project on the command line asks nothing
    ASSERT_TRUE(App().InitInstance());
    ASSERT_NE(App().MainFrame(), nullptr);
    EXPECT_EQ(g_strAppDir, dir.Path());
    EXPECT_EQ(App().MainFrame()->m_strAppDir, dir.Path());
    EXPECT_EQ(App().MainFrame()->Session().m_strAppDir, dir.Path());
    EXPECT_EQ(App().MainFrame()->Document(), nullptr);  // no project until New or Open
    EXPECT_EQ(g_nComPort, 3);
    EXPECT_EQ(g_nBaudIndex, 1);
    EXPECT_EQ(g_nDataBitsIndex, 1);
    EXPECT_EQ(g_nParityIndex, 0);
    EXPECT_EQ(g_nStopBitsIndex, 0);
    EXPECT_EQ(g_strStationList, "1,2");
    ResetGlobals();
}

// A project named on the command line that can't be opened: the person is told, and the start
// fails without a project.
TEST(App, ProjectOnTheCommandLineThatCanNotBeOpened) {
    quillon::test::TempAppDir dir;
    ResetGlobals();
    App().SetOptions({dir.Path() + "recent.ini", dir.Path(), /*showWindow=*/false,
                      {QStringLiteral("quillon"), dir.File("gone.qpj")}});
    ScriptedPrompt prompt;
    EXPECT_FALSE(App().InitInstance());
    EXPECT_EQ(prompt.Messages().size(), 1) << prompt.Messages().join('|').toStdString();
    ASSERT_NE(App().MainFrame(), nullptr);
    EXPECT_EQ(App().MainFrame()->Document(), nullptr);
    App().SetOptions({dir.Path() + "recent.ini", dir.Path(), /*showWindow=*/false, {}});
    ResetGlobals();
}

TEST(App, NewProjectWithoutCatalogueIsReportedAndTheProgramStaysUp) {
    quillon::test::TempAppDir dir;
    dir.Remove("PARAM.DAT");
    App().SetOptions({dir.Path() + "recent.ini", dir.Path(), /*showWindow=*/false, {}});
    ASSERT_TRUE(App().InitInstance());
    CMainFrame* frame = App().MainFrame();
    frame->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(frame));

    ScriptedPrompt prompt;
    // The model dialog opens modally; accept it as it comes up (first model, 50 Hz).
    QTimer::singleShot(0, [] {
        if (auto* dlg = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dlg->accept();
    });
    QTest::keyClick(frame, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(prompt.Messages(), QStringList{"invalid vector<T> subscript"});
    EXPECT_EQ(frame->Document(), nullptr);
    EXPECT_TRUE(frame->isVisible());

    // With the file back, the same command makes a project for the chosen model.
    ASSERT_TRUE(QFile::copy(QStringLiteral(QUILLON_SOURCE_DATA_DIR "/PARAM.DAT"), dir.File("PARAM.DAT")));
    frame->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frame));
    QTimer::singleShot(0, [] {
        if (auto* dlg = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dlg->accept();
    });
    QTest::keyClick(frame, Qt::Key_N, Qt::ControlModifier);
    ASSERT_NE(frame->Document(), nullptr);
    EXPECT_EQ(frame->Session().m_nModelCode, 1102);
    EXPECT_EQ(frame->Document()->RowAt(13, 0).m_strSetValue, "1P2");
    EXPECT_EQ(frame->StatusPaneText(0), "File name:New Project");
    frame->hide();
}

// A second start hands its project to the running program, whatever the path holds; a socket a
// crashed program left behind is taken over instead of blocking every later start.
TEST(App, ProjectHandedToTheRunningProgram) {
    const QString name = QStringLiteral("quillon-test-%1").arg(QCoreApplication::applicationPid());
    const QByteArray socketPath = QFile::encodeName(QDir::tempPath() + u'/' + name);
    {
        const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, socketPath.constData(), sizeof(address.sun_path) - 1);
        ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
        ::close(fd);  // the file stays, nobody answers
    }
    EXPECT_FALSE(CInstanceChannel::HandTo(name, "/p/a.qpj"));

    CInstanceChannel running(name);
    ASSERT_TRUE(running.Listen());
    CInstanceChannel bare(name);  // a start without a project leaves the socket to the first
    EXPECT_FALSE(bare.Listen());
    QSignalSpy handed(&running, &CInstanceChannel::ProjectHandedOver);
    const QString path = QString::fromUtf8("/p/工程 1\r,b.qpj");
    auto second = std::async(std::launch::async, [&] { return CInstanceChannel::HandTo(name, path); });
    ASSERT_TRUE(handed.wait(5000));
    EXPECT_TRUE(second.get());
    ASSERT_EQ(handed.size(), 1);
    EXPECT_EQ(handed[0][0].toString(), path);
}

// A project handed over while a dialog is up waits for the dialog: the dialog may be working on
// the project the open would replace. Of two handed over meanwhile, the later one opens.
TEST(App, ProjectHandedOverDuringADialogOpensWhenItCloses) {
    quillon::test::TempAppDir dir;
    App().SetOptions({dir.Path() + "recent.ini", dir.Path(), /*showWindow=*/false, {}});
    ASSERT_TRUE(App().InitInstance());
    CMainFrame* frame = App().MainFrame();
    ScriptedPrompt prompt;
    QTimer::singleShot(0, [] {
        if (auto* dlg = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dlg->accept();
    });
    App().OnFileNew();
    ASSERT_NE(frame->Document(), nullptr);
    QString error;
    ASSERT_TRUE(SaveProjectDocument(*frame->Document(), dir.File("first.qpj"), error));
    ASSERT_TRUE(SaveProjectDocument(*frame->Document(), dir.File("second.qpj"), error));
    CM330Doc* const working = frame->Document();

    QDialog dialog(frame);
    QTimer::singleShot(0, [&] {
        App().TakeHandedProject(dir.File("first.qpj"));
        App().TakeHandedProject(dir.File("second.qpj"));
        QTest::qWait(300);
        EXPECT_EQ(frame->Document(), working);  // not while the dialog is up
        dialog.accept();
    });
    dialog.exec();
    EXPECT_TRUE(QTest::qWaitFor([&] { return frame->Document() != working; }, 2000));
    EXPECT_EQ(frame->StatusPaneText(0).toStdString(), "File name:second.qpj");
    EXPECT_TRUE(prompt.Messages().isEmpty()) << prompt.Messages().join('\n').toStdString();
}
