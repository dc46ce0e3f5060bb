// The hand-over file at start-up: a link taken over from a pinned pseudo-terminal with no
// dialog, a project opened, and files that ask for nothing or hold junk.

#include "LinkTestSupport.h"
#include "base/Globals.h"
#include "link/PortMap.h"
#include "link/RegisterReaders.h"
#include "params/M330Doc.h"
#include "params/ProjectFile.h"
#include "shell/ChildFrame.h"
#include "shell/HandOver.h"
#include "shell/ProjectTree.h"
#include "support/AppSession.h"
#include "support/ScriptedPrompt.h"
#include "support/WidgetTestSupport.h"

#include <QFile>
#include <gtest/gtest.h>

namespace quillon::test {
namespace {

void WriteHandOver(const QByteArray& content)
{
    QFile file(HandOverFilePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}

sim::BusSetup VersionedBus()
{
    sim::BusSetup setup = TestBusSetup();
    setup.version = 1234;
    return setup;
}

TEST(HandOver, LinkTakenOverFromAPinnedPtyWithNoDialog)
{
    PtyBus bus(VersionedBus());
    ScopedEnv ports(kPortsEnvVar, ("COM3=" + bus.Path()).toLocal8Bit());
    ScriptedPrompt prompt;  // any question would fail the test
    WriteHandOver("2\nCOM3\n19200\n802\n1\n1\n");
    AppSession s;

    EXPECT_TRUE(prompt.Texts().isEmpty()) << prompt.Texts().join('|').toStdString();
    EXPECT_FALSE(QFile::exists(HandOverFilePath()));
    ASSERT_NE(s.frame->Document(), nullptr);
    EXPECT_EQ(s.frame->ChildFrame()->windowTitle(), QStringLiteral("New Project"));
    EXPECT_GT(s.frame->Tree()->topLevelItemCount(), 0);
    EXPECT_EQ(s.frame->StatusPaneText(0), QStringLiteral("File name:New Project"));
    EXPECT_EQ(s.frame->StatusPaneText(1), QStringLiteral("Version:1.234"));
    EXPECT_EQ(s.frame->StatusPaneText(2), QStringLiteral("Station Num:1"));
    EXPECT_EQ(s.frame->StatusPaneText(3), QStringLiteral("Model:R770-2P5-Kxx"));
    EXPECT_EQ(s.frame->StatusPaneText(4), QStringLiteral("Online"));
    const SessionState& session = s.frame->Session();
    EXPECT_EQ(session.m_bOnline, 1);
    EXPECT_EQ(session.m_nModelCode, 1205);
    EXPECT_EQ(session.m_nFreqClass, 1);
    EXPECT_EQ(session.m_stations, std::vector<int>{1});
    EXPECT_EQ(session.m_stationVersions, std::vector<int>{1234});
    EXPECT_EQ(s.frame->LinkSession().Link()->LinkDescription(), bus.Path());
    EXPECT_EQ(bus.Bus().FramesReceived(), 3);
    // The number itself is kept as the port, not reduced by one.
    EXPECT_EQ(g_nComPort, 3);
    QFile settings(s.dir.File("kcomfile.ini"));
    ASSERT_TRUE(settings.open(QIODevice::ReadOnly));
    EXPECT_EQ(settings.readAll(), QByteArray("3\n2\n121\n1\n"));
}

TEST(HandOver, RateOutsideTheFourOpensWithTheRawNumber)
{
    PtyBus bus(VersionedBus());
    ScopedEnv ports(kPortsEnvVar, ("COM3=" + bus.Path()).toLocal8Bit());
    ScriptedPrompt prompt;
    WriteHandOver("2\nCOM3\n14400\n702\n1\n0\n");
    AppSession s;
    EXPECT_TRUE(prompt.Texts().isEmpty()) << prompt.Texts().join('|').toStdString();
    EXPECT_EQ(s.frame->Session().m_bOnline, 1);
    EXPECT_EQ(g_nBaudIndex, 2);
    EXPECT_EQ(g_nDataBitsIndex, 0);
}

TEST(HandOver, DriveThatDoesNotAnswerLeavesTheSessionOffline)
{
    PtyBus bus(VersionedBus());
    ScopedEnv ports(kPortsEnvVar, ("COM3=" + bus.Path()).toLocal8Bit());
    ScriptedPrompt prompt;
    WriteHandOver("2\nCOM3\n19200\n802\n5\n0\n");
    AppSession s;
    EXPECT_EQ(prompt.Texts(), QStringList{"Communication error!"});
    EXPECT_EQ(s.frame->Session().m_bOnline, 0);
    EXPECT_EQ(s.frame->Document(), nullptr);
    ASSERT_NE(s.frame->LinkSession().Link(), nullptr);
    EXPECT_FALSE(s.frame->LinkSession().Link()->IsOpen());
    EXPECT_EQ(s.frame->StatusPaneText(4), QString());
}

TEST(HandOver, PortThatCanNotBeOpenedAndJunk)
{
    ScopedEnv ports(kPortsEnvVar, "COM4=/nonexistent/quillon-com4");
    const QByteArray files[] = {
        "2\nCOM4\n9600\n712\n3\n0\n",  // the port is missing
        "2\n\n\n\n\n",                 // no port name at all
        "2",                           // nothing but the mode
        "2\nCOM4\n9600\n8N2\n1\n0\n",  // letters where digits belong
    };
    for (const QByteArray& content : files) {
        ScriptedPrompt prompt;
        WriteHandOver(content);
        AppSession s;
        ASSERT_EQ(prompt.Texts().size(), 1) << content.toStdString();
        EXPECT_TRUE(prompt.Texts()[0].startsWith(QStringLiteral("Can't Open the Port!")))
            << prompt.Texts()[0].toStdString();
        EXPECT_EQ(s.frame->LinkSession().Link(), nullptr);
        EXPECT_EQ(s.frame->Session().m_bOnline, 0);
        EXPECT_EQ(s.frame->Document(), nullptr);
        EXPECT_FALSE(QFile::exists(HandOverFilePath()));
    }
}

TEST(HandOver, ModesThatAskForNothingAndAProjectToOpen)
{
    for (const QByteArray& content : {QByteArray("3\n2\nCOM1\n"), QByteArray("0\n"), QByteArray(""),
                                      QByteArray("\x01\x02junk\n\n")}) {
        ScriptedPrompt prompt;
        WriteHandOver(content);
        AppSession s;
        EXPECT_FALSE(QFile::exists(HandOverFilePath())) << content.toStdString();
        EXPECT_EQ(s.frame->Document(), nullptr);
        EXPECT_TRUE(prompt.Texts().isEmpty());
        EXPECT_EQ(s.frame->LinkSession().Link(), nullptr);
    }

    // Mode 1 opens the project it names; a path that can't be opened says so.
    TempAppDir dir;
    const QString path = dir.File("handed.qpj");
    {
        ScriptedPrompt quiet;
        g_strAppDir = DataDir();
        SessionState session;
        session.m_strAppDir = DataDir();
        session.m_nModelCode = 201;
        session.m_strModelName = QStringLiteral("R770-201-Kxx");
        CM330Doc doc(session);
        doc.OnNewDocument();
        QString error;
        ASSERT_TRUE(SaveProjectDocument(doc, path, error)) << error.toStdString();
        EXPECT_TRUE(quiet.Texts().isEmpty());
    }
    {
        ScriptedPrompt prompt;
        WriteHandOver("1\n" + path.toUtf8() + "\n");
        AppSession s;
        ASSERT_NE(s.frame->Document(), nullptr);
        EXPECT_EQ(s.frame->Session().m_strProjectPath, path);
        EXPECT_EQ(s.frame->StatusPaneText(3), QStringLiteral("Model:R770-201-Kxx"));
        EXPECT_TRUE(prompt.Texts().isEmpty());
    }
    ScriptedPrompt prompt;
    WriteHandOver("1\n" + dir.File("missing.qpj").toUtf8() + "\n");
    AppSession s;
    EXPECT_EQ(s.frame->Document(), nullptr);
    ASSERT_EQ(prompt.Texts().size(), 1);
    EXPECT_TRUE(prompt.Texts()[0].startsWith(QStringLiteral("Can't open the file!")));
}

TEST(HandOver, LinkLinesGiveTheSessionSettings)
{
    const struct {
        const char* baud;
        const char* digits;
        int baudIndex, dataBitsIndex, parityIndex, stopBitsIndex;
    } cases[] = {
        {"4800", "701", 0, 0, 2, 0},  {"9600", "812", 1, 1, 1, 1},  {"19200", "822", 2, 1, 0, 1},
        {"38400", "802", 3, 1, 2, 1}, {"14400", "802", 2, 1, 2, 1}, {"abc", "9x3", 2, 5, 5, 5},
        {"57600", "", 2, 5, 5, 5},
    };
    for (const auto& c : cases) {
        ResetGlobals();
        g_nDataBitsIndex = g_nParityIndex = g_nStopBitsIndex = 5;  // "left as it was" shows
        const LinkHandOver h = ParseLinkHandOver(
            {"2", "COM12", QString::fromLatin1(c.baud), QString::fromLatin1(c.digits), " 7", "1"});
        ApplyLinkHandOverSettings(h);
        EXPECT_EQ(g_nBaudIndex, c.baudIndex) << c.baud;
        EXPECT_EQ(g_nDataBitsIndex, c.dataBitsIndex) << c.digits;
        EXPECT_EQ(g_nParityIndex, c.parityIndex) << c.digits;
        EXPECT_EQ(g_nStopBitsIndex, c.stopBitsIndex) << c.digits;
        EXPECT_EQ(g_nComPort, 12);
        EXPECT_EQ(g_strStationList, QStringLiteral(" 7"));
        EXPECT_EQ(h.station, 7);
        EXPECT_EQ(h.freqClass, 1);
    }
    ResetGlobals();
}

}  // namespace
}  // namespace quillon::test
