// COM names and the devices behind them.

#include "link/PortMap.h"
#include "support/ScopedEnv.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(PortMap, ComNumbersFromPortNames)
{
    const std::pair<const char*, int> cases[] = {
        {"COM1", 1},        {"com7", 7},          {"\\\\.\\COM10", 10}, {"\\\\.\\COM255", 255},
        {" COM3 ", 3},      {"COM0", 0},          {"COM", 0},           {"TCPIP", 0},
        {"COM1x", 0},       {"/dev/ttyUSB0", 0},  {"\\\\.\\", 0},       {"COM12345", 0},
    };
    for (const auto& [name, number] : cases)
        EXPECT_EQ(ComNumberFromName(QString::fromLatin1(name)), number) << name;
}

TEST(PortMap, PinnedEntriesParseFromCommasAndLines)
{
    const auto entries = ParsePinnedPorts(QStringLiteral(
        "COM1=/dev/ttyUSB0, COM7 = /tmp/sim0\n# the bench adapter\nCOM3=/dev/ttyS1\r\n"
        "bogus,COMx=/dev/a,COM4=,=/dev/b,COM5=/dev/ttyACM0"));
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_EQ(entries[0].m_nCom, 1);
    EXPECT_EQ(entries[0].m_strDevice, "/dev/ttyUSB0");
    EXPECT_EQ(entries[1].m_nCom, 7);
    EXPECT_EQ(entries[1].m_strDevice, "/tmp/sim0");
    EXPECT_EQ(entries[2].m_nCom, 3);
    EXPECT_EQ(entries[3].m_nCom, 5);
    for (const auto& e : entries)
        EXPECT_TRUE(e.m_bPinned);
}

TEST(PortMap, TableNumbersDevicesAroundPinnedEntries)
{
    QTemporaryDir dir;
    // A pinned entry that names a device through a link is the same device.
    const QString link = dir.filePath(QStringLiteral("adapter"));
    QFile target(dir.filePath(QStringLiteral("ttyUSB1")));
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::link(target.fileName(), link));

    const auto env = ParsePinnedPorts(QStringLiteral("COM2=/tmp/sim0,COM5=%1").arg(link));
    const auto file = ParsePinnedPorts(QStringLiteral("COM2=/dev/other,COM3=/dev/ttyS7"));
    std::vector<FoundDevice> devices = {
        {QStringLiteral("/dev/ttyS0"), {}, {}},
        {QStringLiteral("/dev/ttyUSB10"), {}, {}},
        {target.fileName(), {}, {}},
        {QStringLiteral("/dev/ttyUSB2"), QStringLiteral("/dev/serial/by-id/usb-FTDI-if00"),
         QStringLiteral("FT232R USB UART")},
        {QStringLiteral("/dev/ttyACM0"), {}, {}},
        {QStringLiteral("/dev/ttyS7"), {}, {}},
    };
    const auto table = BuildPortTable(env, file, devices);
    std::vector<std::pair<int, QString>> got;
    for (const auto& e : table)
        got.emplace_back(e.m_nCom, e.m_strDevice);
    const std::vector<std::pair<int, QString>> expected = {
        {1, "/dev/ttyACM0"},   // adapters first, by name with numbers as numbers
        {2, "/tmp/sim0"},      // the variable wins over the file for COM2
        {3, "/dev/ttyS7"},     // pinned by the file; not listed again
        {4, "/dev/ttyUSB2"},
        {5, link},             // pinned; the device behind it is not listed again
        {6, "/dev/ttyUSB10"},
        {7, "/dev/ttyS0"},     // on-board ports last
    };
    EXPECT_EQ(got, expected);
    EXPECT_EQ(table[3].m_strDisplay, "/dev/serial/by-id/usb-FTDI-if00");
    EXPECT_EQ(table[5].m_strDisplay, "/dev/ttyUSB10");
    // The list shows the adapter's own description between the name and the device.
    EXPECT_EQ(PortListText(table[3]), "COM4   FT232R USB UART   /dev/serial/by-id/usb-FTDI-if00");
    EXPECT_EQ(PortListText(table[1]), "COM2   /tmp/sim0");
    EXPECT_TRUE(table[1].m_bPinned);
    EXPECT_FALSE(table[0].m_bPinned);
}

TEST(PortMap, ScanReadsTheVariableAndTheFileBesideTheProgram)
{
    QTemporaryDir dir;
    QFile map(QDir(dir.path()).filePath(QString::fromLatin1(kPortsFileName)));
    ASSERT_TRUE(map.open(QIODevice::WriteOnly));
    map.write("COM7=/tmp/from-file\nCOM8=/tmp/file-eight\n");
    map.close();
    qputenv(kPortsEnvVar, "COM7=/tmp/from-env");
    EXPECT_EQ(DeviceForPortName(QStringLiteral("COM7"), dir.path()), "/tmp/from-env");
    EXPECT_EQ(DeviceForPortName(QStringLiteral("COM8"), dir.path()), "/tmp/file-eight");
    EXPECT_EQ(DeviceForPortName(QStringLiteral("TCPIP"), dir.path()), "");
    qunsetenv(kPortsEnvVar);
    EXPECT_EQ(DeviceForPortName(QStringLiteral("COM7"), dir.path()), "/tmp/from-file");

    // An installed program's folder holds no map: the user's configuration folder may.
    QTemporaryDir config;
    const test::ScopedEnv xdg("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
    ASSERT_TRUE(QDir(config.path()).mkpath("quillon"));
    QFile users(config.filePath("quillon/ports.map"));
    ASSERT_TRUE(users.open(QIODevice::WriteOnly));
    users.write("COM9=/tmp/users-nine\n");
    users.close();
    QTemporaryDir installed;
    EXPECT_EQ(DeviceForPortName(QStringLiteral("COM9"), installed.path()), "/tmp/users-nine");
    // The map beside the program is the one that counts when both are there.
    EXPECT_EQ(DeviceForPortName(QStringLiteral("COM9"), dir.path()), "");
    EXPECT_EQ(DeviceForPortName(QStringLiteral("COM8"), dir.path()), "/tmp/file-eight");
}

}  // namespace
}  // namespace quillon
