// quillon-cli control and status against r770-sim playing a network module on loopback.

#include "sim/ChildProcess.h"
#include "support/ProgramRun.h"

#include <QRegularExpression>
#include <chrono>
#include <gtest/gtest.h>

namespace quillon::test {
namespace {

ProgramRun Cli(QStringList args, const QString& tcp)
{
    args << "--tcp" << tcp << "--station" << "1";
    return RunProgram(QStringLiteral(QUILLON_CLI_PATH), args);
}

// The value of `name` in a status block.
QString Value(const ProgramRun& r, const QString& name)
{
    for (const QString& line : r.OutLines())
        if (line.startsWith(name + '\t')) return line.mid(name.size() + 1);
    return QStringLiteral("(none)");
}

TEST(MonitorCli, ResetSetRunAndWatchTheDrive)
{
    sim::ChildProcess sim(std::vector<std::string>{R770_SIM, "--tcp", "0", "--no-search",
                                                   "--fault-code", "14", "--terminals", "0x41"});
    const std::string line = sim.WaitForLine("tcp ", std::chrono::seconds(10));
    ASSERT_FALSE(line.empty()) << "r770-sim did not start";
    const QString tcp = QString::fromStdString(line.substr(4)).trimmed();

    const ProgramRun tripped = Cli({"status"}, tcp);
    ASSERT_EQ(tripped.code, 0) << tripped.err.toStdString();
    EXPECT_EQ(Value(tripped, "fault code"), "14\tEFO\tCommunication external fault");
    EXPECT_EQ(Value(tripped, "abnormal"), "yes");
    EXPECT_EQ(Value(tripped, "terminal R1"), "1");
    EXPECT_EQ(Value(tripped, "terminal DI1"), "1");
    EXPECT_EQ(Value(tripped, "terminal DI2"), "0");

    EXPECT_EQ(Cli({"control", "reset"}, tcp).code, 0);
    EXPECT_EQ(Cli({"control", "freq", "1300"}, tcp).code, 2);
    EXPECT_EQ(Cli({"control", "fly"}, tcp).code, 2);
    const ProgramRun set = Cli({"control", "freq", "30.00"}, tcp);
    ASSERT_EQ(set.code, 0) << set.err.toStdString();
    ASSERT_EQ(Cli({"control", "run"}, tcp).code, 0);

    const ProgramRun watch = Cli({"status", "--watch", "2"}, tcp);
    ASSERT_EQ(watch.code, 0) << watch.err.toStdString();
    EXPECT_EQ(Value(watch, "set frequency"), "30.00");
    EXPECT_EQ(Value(watch, "running"), "yes");
    EXPECT_EQ(Value(watch, "fault code"), "0\t-\t");
    QList<double> outputs;
    for (const QString& l : watch.OutLines())
        if (l.startsWith("output frequency\t")) outputs << l.section('\t', 1).toDouble();
    ASSERT_EQ(outputs.size(), 5);  // one block per 400 ms
    EXPECT_LT(outputs.front(), outputs.back());
    EXPECT_TRUE(watch.err.contains(QRegularExpression("5 polls in 2 s, mean period 4\\d\\d\\.\\d\\d ms, 0 missed")))
        << watch.err.toStdString();
}

}  // namespace
}  // namespace quillon::test
