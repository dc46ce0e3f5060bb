// quillon-cli record against r770-sim playing a network module on loopback: a run-up recorded
// for six seconds, and a recording ended early by Ctrl-C that still writes its samples.

#include "sim/ChildProcess.h"
#include "support/ProgramRun.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

#include <csignal>

namespace quillon::test {
namespace {

QStringList CsvLines(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()).split(QStringLiteral("\r\n"))
                                       : QStringList();
}

TEST(GraphCli, RecordsARunUpAndCtrlCStillWrites)
{
    sim::ChildProcess sim(std::vector<std::string>{R770_SIM, "--tcp", "0", "--no-search"});
    const std::string line = sim.WaitForLine("tcp ", std::chrono::seconds(10));
    ASSERT_FALSE(line.empty()) << "r770-sim did not start";
    const QStringList link{"--tcp", QString::fromStdString(line.substr(4)).trimmed(), "--station", "1"};
    const QString cli = QStringLiteral(QUILLON_CLI_PATH);
    ASSERT_EQ(RunProgram(cli, QStringList{"control", "freq", "50.00"} + link).code, 0);
    ASSERT_EQ(RunProgram(cli, QStringList{"control", "run"} + link).code, 0);

    QTemporaryDir dir;
    const QString path = dir.filePath("run.csv");
    const ProgramRun r = RunProgram(cli, QStringList{"record", "--seconds", "6", "--channel",
                                                     "OUTPUT FREQUENCY", "-o", path} + link);
    ASSERT_EQ(r.code, 0) << r.err.toStdString();
    const QStringList lines = CsvLines(path);
    EXPECT_EQ(lines.value(0), ",Output Frequency,No display,No display,No display");
    const int samples = static_cast<int>(lines.size()) - 3;
    EXPECT_GE(samples, 55);
    EXPECT_LE(samples, 61);
    for (int i = 4; i < lines.size(); ++i) {
        const QStringList a = lines[i - 1].split(','), b = lines[i].split(',');
        ASSERT_EQ(b.size(), 6) << lines[i].toStdString();
        EXPECT_LT(a[5], b[5]);  // times of one morning, increasing
        EXPECT_LE(a[1].toDouble(), b[1].toDouble());
    }
    EXPECT_LT(lines[3].split(',')[1].toDouble() + 10.0, lines.last().split(',')[1].toDouble());

    QProcess interrupted;
    interrupted.start(cli, QStringList{"record", "--seconds", "60", "-o", path} + link);
    ASSERT_TRUE(interrupted.waitForStarted());
    QThread::msleep(1500);
    ::kill(static_cast<pid_t>(interrupted.processId()), SIGINT);
    ASSERT_TRUE(interrupted.waitForFinished(5000));
    EXPECT_EQ(interrupted.exitCode(), 0);
    const int early = static_cast<int>(CsvLines(path).size()) - 3;
    EXPECT_GE(early, 3);  // what was sampled before Ctrl-C, however slowly the program started
    EXPECT_LE(early, 20);
    EXPECT_TRUE(interrupted.readAllStandardError().contains("(interrupted)"));
}

}  // namespace
}  // namespace quillon::test
