// The application object: start-up order, the command line, and the last-resort handler that
// keeps the session alive when a handler fails.

#include "shell/CommSettings.h"
#include "shell/Globals.h"
#include "shell/M330App.h"
#include "shell/MainFrame.h"
#include "support/ScriptedPrompt.h"
#include "support/TestDirs.h"

#include <QFile>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace quillon;
using quillon::test::ScriptedPrompt;

namespace {
CM330App& App() { return *static_cast<CM330App*>(QCoreApplication::instance()); }
}  // namespace

TEST(App, ExceptionEscapingAHandlerIsShownAndTheSessionGoesOn) {
    ScriptedPrompt prompt;
    QPushButton button("Read");
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] {
        ++clicks;
        throw std::out_of_range("invalid vector<T> subscript");
    });
    button.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&button));
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseClick(&button, Qt::LeftButton);  // the program still dispatches events
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(prompt.Messages(), (QStringList{"invalid vector<T> subscript", "invalid vector<T> subscript"}));
}

TEST(App, StartUpSetsTheProgramDirectoryAndRestoresTheLineSettings) {
    quillon::test::TempAppDir dir;
    dir.Write("kcomfile.ini", "3\n1\n100\n1,2\n");
    ResetGlobals();
    App().SetOptions({dir.Path() + "recent.ini", dir.Path(), /*showWindow=*/false});

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
