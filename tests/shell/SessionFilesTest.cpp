// kcomfile.ini, the recent-project list and the command line; the session files against a disk
// that refuses them.

#include "base/CommSettings.h"
#include "base/Globals.h"
#include "base/Language.h"
#include "base/SessionPlaces.h"
#include "link/PortSessionFile.h"
#include "shell/RecentFileList.h"
#include "shell/StartupArgs.h"
#include "support/TestDirs.h"
#include "support/ProgramRun.h"
#include "support/ScopedEnv.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace quillon;

namespace {

// A program directory, and a temporary directory of the test's own, so the fallback place of
// the session file never touches the machine's real temporary directory.
class CommSettingsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ResetGlobals();
        g_strAppDir = m_app.Path();
    }
    void TearDown() override { ResetGlobals(); }
    quillon::test::PrivateTempDir m_tmp;
    quillon::test::TempAppDir m_app;
};

// What `save` says on stderr when it runs in a child process whose files can't grow past 4 bytes
// (stderr goes to a pipe, which no size limit touches).
QString SaidOnAFullDisk(const std::function<void()>& save) {
    int pipe[2];
    if (::pipe(pipe) != 0) return QString();
    EXPECT_EXIT((::dup2(pipe[1], 2), test::LimitFileSize(4), save(), ::_exit(0)),
                testing::ExitedWithCode(0), "");
    ::close(pipe[1]);
    QFile said;
    said.open(pipe[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    return QString::fromUtf8(said.readAll());
}

}  // namespace

TEST_F(CommSettingsTest, RoundTripInTheProgramDirectory) {
    g_nComPort = 6;
    g_nBaudIndex = 3;
    g_nDataBitsIndex = 0;
    g_nParityIndex = 1;
    g_nStopBitsIndex = 0;
    g_strStationList = "1,3,5-12";
    SaveCommSettings();
    QFile f(g_strAppDir + "kcomfile.ini");
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("6\n3\n010\n1,3,5-12\n"));

    ResetGlobals();
    g_strAppDir = m_app.Path();
    LoadCommSettings();
    EXPECT_EQ(g_nComPort, 6);
    EXPECT_EQ(g_nBaudIndex, 3);
    EXPECT_EQ(g_nDataBitsIndex, 0);
    EXPECT_EQ(g_nParityIndex, 1);
    EXPECT_EQ(g_nStopBitsIndex, 0);
    EXPECT_EQ(g_strStationList, "1,3,5-12");
}

TEST_F(CommSettingsTest, NoFileLeavesTheInitialLineSettings) {
    LoadCommSettings();
    EXPECT_EQ(g_nComPort, 0);
    EXPECT_EQ(g_nBaudIndex, 2);       // 19200
    EXPECT_EQ(g_nDataBitsIndex, 1);   // 8 data bits
    EXPECT_EQ(g_nParityIndex, 2);     // none
    EXPECT_EQ(g_nStopBitsIndex, 1);   // 2 stop bits
    EXPECT_TRUE(g_strStationList.isEmpty());
}

TEST_F(CommSettingsTest, ThirdLineCountsOnlyWithExactlyThreeCharacters) {
    m_app.Write("kcomfile.ini", "4\n1\n18\n2\n");
    LoadCommSettings();
    EXPECT_EQ(g_nComPort, 4);
    EXPECT_EQ(g_nBaudIndex, 1);
    EXPECT_EQ(g_nDataBitsIndex, 1);
    EXPECT_EQ(g_nParityIndex, 2);
    EXPECT_EQ(g_nStopBitsIndex, 1);
    EXPECT_EQ(g_strStationList, "2");

    m_app.Write("kcomfile.ini", "-1\n0\n101\n\n");  // TCP/IP, 4800, 8 data bits, even, 2 stop bits
    LoadCommSettings();
    EXPECT_EQ(g_nComPort, -1);
    EXPECT_EQ(g_nDataBitsIndex, 1);
    EXPECT_EQ(g_nParityIndex, 0);
    EXPECT_EQ(g_nStopBitsIndex, 1);
    EXPECT_TRUE(g_strStationList.isEmpty());
}

// An installed program: its folder can't take files (a file stands where the folder would be,
// which stops root as well), so both session files go to the user's configuration folder and come
// back from there; the temporary folder, where older versions put them, is still read last.
TEST_F(CommSettingsTest, UnwritableProgramFolderKeepsTheSessionFilesInTheConfigFolder) {
    m_app.Write("blocked", "");
    g_strAppDir = m_app.File("blocked") + "/";
    QFile old(m_tmp.Path() + "/kcomfile.ini");
    ASSERT_TRUE(old.open(QIODevice::WriteOnly) && old.write("5\n0\n100\n5\n") > 0);
    old.close();
    LoadCommSettings();
    EXPECT_EQ(g_nComPort, 5);

    g_nComPort = 2;
    g_strStationList = "7";
    SaveCommSettings();
    ASSERT_TRUE(WritePortSession(PortSession{"COM3", {}, {}}));
    EXPECT_TRUE(QFile::exists(m_tmp.ConfigPath() + "/quillon/kcomfile.ini"));
    EXPECT_TRUE(QFile::exists(m_tmp.ConfigPath() + "/quillon/PZ4comfile.ini"));
    g_nComPort = 0;
    g_strStationList.clear();
    LoadCommSettings();
    EXPECT_EQ(g_nComPort, 2);
    EXPECT_EQ(g_strStationList, "7");
    ASSERT_TRUE(ReadPortSession());
    EXPECT_EQ(ReadPortSession()->portText, "COM3");

    // A writable program folder is tried first when reading as well.
    m_app.Write("kcomfile.ini", "9\n2\n110\n9\n");
    g_strAppDir = m_app.Path();
    LoadCommSettings();
    EXPECT_EQ(g_nComPort, 9);
}

// A full disk, played by a file size limit of 4 bytes in a child process: each session file fails
// with the system's reason, the old one stays byte for byte, no temporary file is left behind.
// (The project file: CliTransferTest.)
TEST_F(CommSettingsTest, EveryFileKeepsItsOldContentWhenTheDiskRefusesTheNewOne) {
    const QString recent = m_app.File("recent.ini");
    const struct {
        QString path;
        std::function<void()> save;
    } cases[] = {
        {CommSettingsPrimaryPath(), [] { SaveCommSettings(); }},
        {PortSessionPrimaryPath(), [] { WritePortSession(PortSession{"COM3", {}, {}}); }},
        {recent,
         [&] {
             CRecentFileList list(recent);
             list.Add("/p/a.qpj");
             list.WriteList();
         }},
    };
    const QByteArray old(64, 'o');
    const auto files = [](const QString& dir) {
        return QDir(dir).entryList(QDir::Files | QDir::Hidden | QDir::Dirs | QDir::NoDotAndDotDot);
    };
    for (const auto& c : cases) {
        QFile file(c.path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(old) == old.size());
    }
    const QStringList appBefore = files(m_app.Path()), tmpBefore = files(m_tmp.Path());
    for (const auto& c : cases) {
        QFile file(c.path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(old) == old.size());
        file.close();
        EXPECT_THAT(SaidOnAFullDisk(c.save).toStdString(),
                    testing::HasSubstr("can't save " + c.path.toStdString() + ": File too large"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), old) << c.path.toStdString();
    }
    EXPECT_EQ(files(m_app.Path()), appBefore);
    EXPECT_EQ(files(m_tmp.Path()), tmpBefore);
}

TEST(RecentFileList, KeepsEightNewestFirstAndStoresThemUnderTheirKeys) {
    QTemporaryDir dir;
    const QString ini = dir.filePath("recent.ini");
    CRecentFileList list(ini);
    for (int i = 1; i <= 9; ++i) list.Add(QStringLiteral("/p/project%1.qpj").arg(i));
    ASSERT_EQ(list.Size(), 8);
    EXPECT_EQ(list.At(0), "/p/project9.qpj");
    EXPECT_EQ(list.At(7), "/p/project2.qpj");
    list.Add("/p/project5.qpj");  // an entry already there moves to the top
    EXPECT_EQ(list.Size(), 8);
    EXPECT_EQ(list.At(0), "/p/project5.qpj");
    EXPECT_EQ(list.At(1), "/p/project9.qpj");
    list.Remove("/p/project9.qpj");
    list.WriteList();

    QFile f(ini);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(f.readAll());
    EXPECT_TRUE(text.contains("[My%20Recent%20File%20List]") || text.contains("[My Recent File List]"))
        << text.toStdString();
    EXPECT_TRUE(text.contains("MyFile1=/p/project5.qpj")) << text.toStdString();
    EXPECT_FALSE(text.contains("MyFile8")) << text.toStdString();

    CRecentFileList again(ini);
    again.ReadList();
    ASSERT_EQ(again.Size(), 7);
    EXPECT_EQ(again.At(1), "/p/project8.qpj");
    EXPECT_TRUE(again.At(7).isEmpty());

    // Paths the INI form would change otherwise come back as they went in.
    const QStringList odd{"@odd.qpj", QString::fromUtf8(" /p/a, b; \"c\" \\d=#参数.qpj ")};
    for (const QString& path : odd) list.Add(path);
    list.WriteList();
    again.ReadList();
    EXPECT_EQ(again.At(0), odd[1]);
    EXPECT_EQ(again.At(1), odd[0]);
}

TEST(RecentFileList, WithoutAPathItLivesWithTheOtherUserSettings) {
    QTemporaryDir config;
    const test::ScopedEnv xdg("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
    CRecentFileList list{QString()};
    list.Add("/p/a.qpj");
    ASSERT_TRUE(list.WriteList());
    const QString folder = config.filePath("quillon");
    EXPECT_TRUE(QFile::exists(folder + "/quillon.ini"));
    // The language choice and an installed program's session files go to the same folder.
    EXPECT_EQ(LanguageIniPath(list.IniPath()), folder + "/language.ini");
    EXPECT_EQ(SessionFilePlaces("/nowhere/", "kcomfile.ini")[1], folder + "/kcomfile.ini");
}

TEST(RecentFileList, DisplayNameIsCutToThirtyCharactersKeepingTheEnd) {
    QTemporaryDir dir;
    CRecentFileList list(dir.filePath("r.ini"));
    list.Add("/home/engineer/projects/line-4/conveyor.qpj");
    list.Add("/short.qpj");
    EXPECT_EQ(list.DisplayName(0), "/short.qpj");
    const QString cut = list.DisplayName(1);
    EXPECT_EQ(cut.size(), 30);
    EXPECT_TRUE(cut.endsWith("line-4/conveyor.qpj"));
}

TEST(StartupArgs, DdeSuffixIsCutAndABareDdeOpensNothing) {
    EXPECT_EQ(StartupProjectPath({"quillon", "/work/a.qpj/dde"}), "/work/a.qpj");
    EXPECT_EQ(StartupProjectPath({"quillon", "/work/a.qpj", "/dde"}), "/work/a.qpj");
    EXPECT_EQ(StartupProjectPath({"quillon", "/work/a.qpj /dde"}), "/work/a.qpj");
    EXPECT_TRUE(StartupProjectPath({"quillon", "/dde"}).isEmpty());
    EXPECT_TRUE(StartupProjectPath({"quillon"}).isEmpty());
    EXPECT_EQ(StartupProjectPath({"quillon", "/work/plain.qpj"}), "/work/plain.qpj");
}
