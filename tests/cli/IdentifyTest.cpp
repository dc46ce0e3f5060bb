// quillon-cli identify against the simulated drive on a pinned pseudo-terminal.

#include "LinkTestSupport.h"
#include "link/PortMap.h"
#include "support/ProgramRun.h"
#include "support/ScopedEnv.h"

#include <gtest/gtest.h>

namespace quillon::test {
namespace {

ProgramRun Identify(const QStringList& args)
{
    return RunProgram(QStringLiteral(QUILLON_CLI_PATH), QStringList{"identify"} + args);
}

TEST(CliIdentify, NamesTheDriveAtAStation)
{
    sim::BusSetup setup = TestBusSetup();
    setup.stations = {sim::StationSetup{1, 1205, 0}, sim::StationSetup{2, 201, 0}};
    setup.version = 1234;
    PtyBus bus(setup);
    ScopedEnv ports(kPortsEnvVar, ("COM1=" + bus.Path()).toLocal8Bit());

    const ProgramRun first = Identify({});  // COM1, station 1, 19200 8N2
    ASSERT_EQ(first.code, 0) << first.err.toStdString();
    EXPECT_TRUE(first.err.isEmpty()) << first.err.toStdString();
    const QStringList lines = first.OutLines();
    EXPECT_TRUE(lines.contains(QStringLiteral("model\t1205\tR770-2P5-Kxx"))) << first.out.toStdString();
    EXPECT_TRUE(lines.contains(QStringLiteral("capacity\t2P5")));
    EXPECT_TRUE(lines.contains(QStringLiteral("version\t1.234")));
    EXPECT_TRUE(lines.contains(QStringLiteral("station\t1")));
    EXPECT_TRUE(lines.contains(QStringLiteral("model word\t256")));
    EXPECT_EQ(lines.filter(QStringLiteral("run source\t")).size(), 1);

    const ProgramRun second = Identify({"--port", "COM1", "--station", "2"});
    ASSERT_EQ(second.code, 0) << second.err.toStdString();
    EXPECT_TRUE(second.OutLines().contains(QStringLiteral("model\t201\tR770-201-Kxx")));

    // A station nobody answers at, a port with nothing behind it.
    const ProgramRun absent = Identify({"--station", "7"});
    EXPECT_EQ(absent.code, 1);
    EXPECT_TRUE(absent.err.contains(QStringLiteral("Communication error!"))) << absent.err.toStdString();
    EXPECT_TRUE(absent.out.isEmpty());
    const ProgramRun unpinned = Identify({"--port", "COM5"});
    EXPECT_EQ(unpinned.code, 1);
    EXPECT_TRUE(unpinned.err.contains(QStringLiteral("Can't Open the Port!"))) << unpinned.err.toStdString();
}

TEST(CliIdentify, BadArgumentsExitWithTwo)
{
    for (const QStringList& args : {QStringList{"--station", "40"}, QStringList{"--port", "TCPIP"},
                                    QStringList{"--parity", "mark"}, QStringList{"--baud"},
                                    QStringList{"--tcp", "1.2.3.4:99999"}, QStringList{"--colour", "red"}}) {
        const ProgramRun r = Identify(args);
        EXPECT_EQ(r.code, 2) << args.join(' ').toStdString();
        EXPECT_FALSE(r.err.isEmpty());
    }
}

}  // namespace
}  // namespace quillon::test
