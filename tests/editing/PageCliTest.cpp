// quillon-cli set and page-write: refused values leave the file and the drive alone, exit codes
// tell refusal from bad arguments.

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

ProgramRun Cli(const QStringList& args) { return RunProgram(QStringLiteral(QUILLON_CLI_PATH), args); }

QByteArray Bytes(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

TEST(PageCli, SetGoesThroughThePageChecks) {
    QTemporaryDir dir;
    const QString path = dir.filePath("p.qpj");
    {
        ResetGlobals();
        g_strAppDir = DataDir();
        SessionState session;
        session.m_strAppDir = DataDir();
        CM330Doc doc(session);
        doc.OnNewDocument();
        QString error;
        ASSERT_TRUE(SaveProjectDocument(doc, path, error)) << error.toStdString();
        ResetGlobals();
    }
    const QByteArray before = Bytes(path);
    struct Refusal {
        const char* assignment;
        const char* says;
    } const refusals[] = {
        {"00-11=600", "00-11: Beyond the range!"},   // above the field's limit
        {"00-12=0", "00-12: Beyond the range!"},     // below it
        {"02-01=3.9", "02-01: Beyond the range!"},   // the model's limit (1205: 0.2~3.8)
        {"00-00=2", "00-00: Beyond the range!"},     // beyond the list
        {"F27=00201", "F27:"},                       // not a binary digit
        {"09-00=3", "09-00: The parameter read only!"},
    };
    for (const Refusal& r : refusals) {
        const ProgramRun run = Cli({"set", path, "00-13=1.5", r.assignment});
        EXPECT_EQ(run.code, 1) << r.assignment;
        EXPECT_TRUE(run.err.contains(r.says)) << run.err.toStdString();
        EXPECT_EQ(Bytes(path), before) << r.assignment;
    }
    EXPECT_EQ(Cli({"set", path, "99-99=1"}).code, 2);

    const QString out = dir.filePath("q.qpj");
    const ProgramRun ok = Cli({"set", path, "00-11=5", "F27=00101", "12-00=00017", "-o", out});
    ASSERT_EQ(ok.code, 0) << ok.err.toStdString();
    const QString dump = Cli({"dump", out}).out;
    EXPECT_TRUE(dump.contains(QRegularExpression("00-11[^\n]*\t5\\.00\n"))) << dump.toStdString();
    EXPECT_TRUE(dump.contains(QRegularExpression("F27[^\n]*\t00101\n")));
    EXPECT_TRUE(dump.contains(QRegularExpression("12-00[^\n]*\t00017\n")));
    EXPECT_EQ(Bytes(path), before);
}

TEST(PageCli, PageWriteLikeTheRowButton) {
    sim::ChildProcess sim({R770_SIM, "--tcp", "0", "--no-search", "--station", "2"});
    const std::string line = sim.WaitForLine("tcp ", std::chrono::seconds(10));
    ASSERT_FALSE(line.empty());
    const QString tcp = QString::fromStdString(line.substr(4)).trimmed();
    const auto pageWrite = [&](const char* code, const char* value) {
        return Cli({"page-write", "--tcp", tcp, "--station", "2", code, value});
    };
    const ProgramRun ok = pageWrite("00-11", "0.29");
    EXPECT_EQ(ok.code, 0) << ok.err.toStdString();
    EXPECT_TRUE(ok.err.contains("Write successful!"));
    const ProgramRun readOnly = pageWrite("09-00", "3");
    EXPECT_EQ(readOnly.code, 1);
    EXPECT_TRUE(readOnly.err.contains("The parameter read only!"));
    const ProgramRun rule = pageWrite("01-04", "5.00");  // the drive's curve is not the free one
    EXPECT_EQ(rule.code, 1);
    EXPECT_TRUE(rule.err.contains("when 01-00=7,the parameter can be writed into inverter!"));
    EXPECT_EQ(pageWrite("00-11", "700").code, 1);
    EXPECT_EQ(Cli({"page-write", "--tcp", tcp, "--station", "2", "00-11"}).code, 2);
}

}  // namespace
}  // namespace quillon::test
