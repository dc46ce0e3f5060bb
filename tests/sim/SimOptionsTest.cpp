// The simulator's command line.

#include "sim/NetworkModule.h"
#include "sim/SimOptions.h"

#include <gtest/gtest.h>

namespace quillon::sim {
namespace {

QString Parse(const QStringList& args, SimOptions& options)
{
    bool help = false;
    return ParseSimOptions(args, options, help);
}

TEST(SimOptions, StationsModelsLineAndFaults)
{
    SimOptions o;
    ASSERT_EQ(Parse({"--pty", "/tmp/x", "--station", "1,3,7", "--model", "201,0x191",
                     "--baud", "9600", "--parity", "even", "--stop-bits", "2", "--wire-timing",
                     "--turnaround-ms", "2.5", "--bad-crc-every", "3", "--drop-every", "4",
                     "--truncate-every", "5", "--extra-delay-ms", "20", "--silent-after", "6",
                     "--model-word", "0x110", "--tcp", "0"},
                    o),
              "");
    EXPECT_EQ(o.ptyPath, "/tmp/x");
    EXPECT_EQ(o.tcpPort, 0);
    EXPECT_EQ(o.bindAddress, "127.0.0.1");
    ASSERT_EQ(o.bus.stations.size(), 3u);
    EXPECT_EQ(o.bus.stations[0].address, 1);
    EXPECT_EQ(o.bus.stations[0].modelCode, 201);
    EXPECT_EQ(o.bus.stations[1].modelCode, 401);  // 0x191
    EXPECT_EQ(o.bus.stations[2].address, 7);
    EXPECT_EQ(o.bus.stations[2].modelCode, 401);  // the last model repeats
    EXPECT_EQ(o.bus.line.baud, 9600);
    EXPECT_EQ(o.bus.line.parity, Parity::Even);
    EXPECT_EQ(o.bus.line.stopBits, 2);
    EXPECT_FALSE(o.bus.line.dataBits);
    EXPECT_TRUE(o.bus.wireTiming);
    EXPECT_DOUBLE_EQ(o.bus.turnaroundMs, 2.5);
    EXPECT_EQ(o.bus.faults.badCrcEvery, 3);
    EXPECT_EQ(o.bus.faults.dropEvery, 4);
    EXPECT_EQ(o.bus.faults.truncateEvery, 5);
    EXPECT_EQ(o.bus.faults.extraDelayMs, 20);
    EXPECT_EQ(o.bus.faults.silentAfter, 6);
    EXPECT_EQ(o.bus.modelWord, 0x110);
}

TEST(SimOptions, NetworkModule)
{
    SimOptions o;
    ASSERT_EQ(Parse({"--tcp", "10001", "--bind", "127.0.0.2", "--mac", "00-20-4A-14-01-18",
                     "--search-listen", "127.255.255.255"},
                    o),
              "");
    EXPECT_EQ(o.bindAddress, "127.0.0.2");
    ASSERT_TRUE(o.mac);
    EXPECT_EQ(MacText(*o.mac), "00-20-4a-14-01-18");
    EXPECT_EQ(o.searchListen, "127.255.255.255");
    EXPECT_TRUE(o.answerSearch);

    SimOptions quiet;
    ASSERT_EQ(Parse({"--tcp", "0", "--no-search"}, quiet), "");
    EXPECT_FALSE(quiet.answerSearch);
    EXPECT_FALSE(quiet.mac);
    EXPECT_EQ(quiet.searchListen, "0.0.0.0");
    EXPECT_EQ(MacText(ModuleMacForPort(10001)), "02-00-00-00-27-11");

    for (const QStringList& bad : {QStringList{"--tcp", "0", "--mac", "00-20-4a"},
                                   QStringList{"--tcp", "0", "--search-listen", "everywhere"}}) {
        SimOptions b;
        EXPECT_NE(Parse(bad, b), "") << bad.join(' ').toStdString();
    }
}

TEST(SimOptions, RefusesWhatADriveCanNotBe)
{
    const QStringList bad[] = {
        {},
        {"--station", "1"},
        {"--pty", "/tmp/x", "--baud", "14400"},
        {"--pty", "/tmp/x", "--parity", "mark"},
        {"--pty", "/tmp/x", "--station", "0"},
        {"--pty", "/tmp/x", "--station", "1,x"},
        {"--pty", "/tmp/x", "--stop-bits", "3"},
        {"--tcp", "70000"},
        {"--pty", "/tmp/x", "--drop-every", "-1"},
        {"--pty", "/tmp/x", "stray"},
        {"--pty", "/tmp/x", "--no-such-option"},
    };
    for (const QStringList& args : bad) {
        SimOptions o;
        EXPECT_NE(Parse(args, o), "") << args.join(' ').toStdString();
    }
    SimOptions o;
    bool help = false;
    EXPECT_EQ(ParseSimOptions({"--help"}, o, help), "");
    EXPECT_TRUE(help);
    EXPECT_TRUE(SimHelpText().contains("--wire-timing"));
}

}  // namespace
}  // namespace quillon::sim
