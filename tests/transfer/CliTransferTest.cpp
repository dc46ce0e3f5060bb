// quillon-cli read and write against r770-sim playing a network module on loopback: messages,
// project files and exit codes.

#include "LinkTestSupport.h"
#include "base/Globals.h"
#include "params/M330Doc.h"
#include "params/ProjectFile.h"
#include "sim/ChildProcess.h"
#include "support/ProgramRun.h"
#include "support/TestDirs.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <chrono>
#include <gtest/gtest.h>

namespace quillon::test {
namespace {

ProgramRun Cli(const QStringList& args, const std::function<void()>& inChild = {}) {
    return RunProgram(QStringLiteral(QUILLON_CLI_PATH), args, 30000, inChild);
}

QByteArray Bytes(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// One drive, station 3 of model 201, behind a module on a free loopback port.
class CliTransferTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_sim = std::make_unique<sim::ChildProcess>(std::vector<std::string>{
            R770_SIM, "--tcp", "0", "--no-search", "--station", "3", "--model", "201"});
        const std::string line = m_sim->WaitForLine("tcp ", std::chrono::seconds(10));
        ASSERT_FALSE(line.empty()) << "r770-sim did not start";
        m_tcp = QString::fromStdString(line.substr(4)).trimmed();
    }
    QString File(const char* name) const { return m_dir.filePath(QString::fromLatin1(name)); }
    // A project of `model` saved in the test's directory.
    QString Project(int model) const {
        ResetGlobals();
        g_strAppDir = DataDir();
        SessionState session;
        session.m_strAppDir = DataDir();
        session.m_nModelCode = model;
        CM330Doc doc(session);
        doc.OnNewDocument();
        const QString path = File("project.qpj");
        QString error;
        EXPECT_TRUE(SaveProjectDocument(doc, path, error)) << error.toStdString();
        ResetGlobals();
        return path;
    }

    std::unique_ptr<sim::ChildProcess> m_sim;
    QString m_tcp;
    QTemporaryDir m_dir;
};

TEST_F(CliTransferTest, ReadSavesTheDrivesProjectForItsModel) {
    const ProgramRun r = Cli({"read", "--tcp", m_tcp, "--station", "3", "-o", File("read.qpj")});
    ASSERT_EQ(r.code, 0) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains("Read sucessful !")) << r.err.toStdString();
    const ProgramRun dump = Cli({"dump", File("read.qpj")});
    ASSERT_EQ(dump.code, 0);
    EXPECT_TRUE(dump.out.contains("model\t201\tR770-201-Kxx")) << dump.out.toStdString();
}

TEST_F(CliTransferTest, WriteAnswersNoUnlessTold) {
    const QString project = Project(1205);  // the drive is a 201: same class, other model

    const ProgramRun no = Cli({"write", project, "--tcp", m_tcp, "--station", "3"});
    EXPECT_EQ(no.code, 1);
    EXPECT_TRUE(
        no.err.contains("Inverter's type may be not match you select type.Continue ? "
                        "[answered no]"))
        << no.err.toStdString();
    EXPECT_FALSE(no.err.contains("Write successful!"));

    const ProgramRun yes = Cli({"write", project, "--tcp", m_tcp, "--station", "3", "--yes"});
    ASSERT_EQ(yes.code, 0) << yes.err.toStdString();
    // Motor data stay the drive's: the list of what was left out, then the success.
    const qsizetype list = yes.err.indexOf(QStringLiteral("未写入马达参数"));
    ASSERT_GE(list, 0) << yes.err.toStdString();
    EXPECT_GT(yes.err.indexOf(QStringLiteral("Write successful!")), list);
}

// A disk that takes no more than 64 bytes of a file: the read fails with the reason, says no
// success, and the project that was there keeps every byte.
TEST_F(CliTransferTest, ReadOntoAFullDiskKeepsTheOldProjectAndFails) {
    const QString path = Project(201);
    const QByteArray before = Bytes(path);
    const ProgramRun r = Cli({"read", "--tcp", m_tcp, "--station", "3", "-o", path},
                             [] { LimitFileSize(64); });
    EXPECT_EQ(r.code, 1);
    EXPECT_TRUE(r.err.contains("can't save " + path + ": File too large")) << r.err.toStdString();
    EXPECT_FALSE(r.err.contains("Read sucessful !")) << r.err.toStdString();
    EXPECT_EQ(Bytes(path), before);
}

// What can't be sent whole or kept is refused before the port is opened: exit 2, where a link
// that was opened would have read or written the drive.
TEST_F(CliTransferTest, FilesThatCantBeSentOrKeptStopBeforeTheLink) {
    const QByteArray project = Bytes(Project(201));
    const auto write = [this](const char* name, const QByteArray& bytes) {
        QFile f(File(name));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
        return f.fileName();
    };
    const struct {
        QStringList args;
        const char* says;
    } cases[] = {
        {{"write", "--yes", write("v3.qpj", QByteArray(project).replace(0, 1, "\x03"))},
         "please download the latest version"},
        {{"write", "--yes", write("tail.qpj", project + "x")}, "1 bytes behind the last field"},
        {{"read", "-o", File("none/x.qpj")}, "No such file or directory"},
        {{"read", "-o", m_dir.path()}, "Is a directory"},
    };
    for (const auto& c : cases) {
        const ProgramRun r = Cli(c.args + QStringList{"--tcp", m_tcp, "--station", "3"});
        EXPECT_EQ(r.code, 2) << r.err.toStdString();
        EXPECT_TRUE(r.err.contains(c.says)) << r.err.toStdString();
    }
}

TEST_F(CliTransferTest, DriveOrLinkFailureExitsWithOneAndBadArgumentsWithTwo) {
    const auto t0 = std::chrono::steady_clock::now();
    const ProgramRun silent = Cli({"read", "--tcp", m_tcp, "--station", "9", "-o", File("x.qpj")});
    EXPECT_EQ(silent.code, 1);
    EXPECT_TRUE(silent.err.contains("TimeOut!")) << silent.err.toStdString();
    EXPECT_LT(SecondsSince(t0), 5.0);

    m_sim->Stop();
    const ProgramRun gone = Cli({"read", "--tcp", m_tcp, "--station", "3", "-o", File("x.qpj")});
    EXPECT_EQ(gone.code, 1);
    EXPECT_TRUE(gone.err.contains("Can't Open the Port!")) << gone.err.toStdString();

    for (const QStringList& args :
         {QStringList{"read", "--tcp", m_tcp, "-o", File("x.qpj")},
          QStringList{"read", "--port", "COM1", "--tcp", m_tcp, "--station", "1", "-o", "x"},
          QStringList{"read", "--port", "COM1", "--station", "1"},
          QStringList{"read", "--port", "COM1", "--station", "33", "-o", "x"},
          QStringList{"read", "--port", "COM1", "--station", "1", "--baud", "1200", "-o", "x"},
          QStringList{"read", "--port", "COM1", "--station", "1", "--parity", "mark", "-o", "x"},
          QStringList{"write", "--port", "COM1", "--station", "1"},
          QStringList{"write", File("missing.qpj"), "--port", "COM1", "--station", "1"}}) {
        const ProgramRun r = Cli(args);
        EXPECT_EQ(r.code, 2) << args.join(' ').toStdString() << ": " << r.err.toStdString();
    }
}

// Station 3 is there, 4 is not: one project, a table that says so, exit 1; the frames of the
// run in the log, the last one a time-out.
TEST_F(CliTransferTest, BackupSavesWhatAnswersAndLogsTheFrames) {
    const QString log = File("frames.txt");
    // The folder of the day's backup is made as it is named.
    const QString folder = m_dir.filePath("plant/2026-11-25");
    const ProgramRun r = Cli({"backup", "--tcp", m_tcp, "--stations", "3-4", "-o", folder,
                              "--log-frames", log});
    EXPECT_EQ(r.code, 1) << r.err.toStdString();
    const QString link = "127.0.0.1_" + m_tcp.section(':', 1);
    EXPECT_TRUE(QFile::exists(folder + "/" + link + "-3.qpj"));
    EXPECT_FALSE(QFile::exists(folder + "/" + link + "-4.qpj"));
    EXPECT_TRUE(r.out.contains(QRegularExpression(link + " +3 +R770-201-Kxx +ok "))) << r.out.toStdString();
    EXPECT_TRUE(r.out.contains(QRegularExpression(link + " +4 +- +FAILED: TimeOut! "))) << r.out.toStdString();
    const QStringList lines = QString::fromUtf8(Bytes(log)).split('\n', Qt::SkipEmptyParts);
    ASSERT_GE(lines.size(), 2 * 30);
    EXPECT_TRUE(lines.front().contains("  >  127.0.0.1:" + m_tcp.section(':', 1) + "  03 03 ")) << lines.front().toStdString();
    EXPECT_TRUE(lines.back().endsWith("TimeOut!")) << lines.back().toStdString();
    EXPECT_EQ(Cli({"backup", "--tcp", m_tcp, "--stations", "0-2", "-o", m_dir.path()}).code, 2);
}

}  // namespace
}  // namespace quillon::test
