// PZ4comfile.ini and the module list it names: the format, where it is looked for, and how
// names found there and given by a person reach the records and the file.

#include "base/Globals.h"
#include "base/TextFile.h"
#include "link/ModuleList.h"
#include "link/PortSessionFile.h"
#include "support/TestDirs.h"

#include <QFile>
#include <gtest/gtest.h>

namespace quillon::test {
namespace {

DeviceRecord Module(const char* mac, const char* ip)
{
    DeviceRecord d;
    d.mac = QString::fromLatin1(mac);
    d.ip = QString::fromLatin1(ip);
    return d;
}

class PortSessionFile : public ::testing::Test {
protected:
    void SetUp() override { g_strAppDir = m_dir.Path(); }
    void TearDown() override { ResetGlobals(); }
    PrivateTempDir m_tmp;
    TempAppDir m_dir;
};

TEST_F(PortSessionFile, FormatAndParseAgree)
{
    PortSession s;
    s.portText = QStringLiteral("TCPIP");
    s.mac = QStringLiteral("00-20-4a-00-00-02");
    s.names = {{QStringLiteral("00-20-4a-00-00-01"), QStringLiteral("Pump 3")},
               {QStringLiteral("00-20-4a-00-00-02"), QString()}};
    const QByteArray text = FormatPortSession(s);
    EXPECT_EQ(text, QByteArray("TCPIP\n00-20-4a-00-00-02\n2\n00-20-4a-00-00-01\nPump 3\n"
                               "00-20-4a-00-00-02\n \n"));
    const PortSession back = ParsePortSession({"TCPIP", "00-20-4a-00-00-02", "2", "00-20-4a-00-00-01",
                                               "Pump 3", "00-20-4a-00-00-02", " "});
    EXPECT_EQ(back.portText, s.portText);
    EXPECT_EQ(back.mac, s.mac);
    EXPECT_EQ(back.names, s.names);

    // A serial port has no MAC line, and no count line without modules.
    PortSession serial;
    serial.portText = QStringLiteral("COM3");
    EXPECT_EQ(FormatPortSession(serial), QByteArray("COM3\n"));
    serial.names = {{QStringLiteral("00-20-4a-00-00-01"), QStringLiteral("A")}};
    EXPECT_EQ(FormatPortSession(serial), QByteArray("COM3\n1\n00-20-4a-00-00-01\nA\n"));
}

TEST_F(PortSessionFile, JunkGivesWhatCanBeTaken)
{
    EXPECT_TRUE(ParsePortSession({}).portText.isEmpty());
    EXPECT_EQ(ParsePortSession({"COM1", "9", "aa", "A", "bb"}).names,
              (std::vector<std::pair<QString, QString>>{{"aa", "A"}}));
    EXPECT_TRUE(ParsePortSession({"COM1", "-4", "aa", "A"}).names.empty());
    EXPECT_TRUE(ParsePortSession({"TCPIP"}).mac.isEmpty());
}

// One value a line: values a line can't hold as they are (a line feed inside, a carriage return
// at the end) must not move the lines behind them.
TEST_F(PortSessionFile, ValuesALineCanNotHoldKeepTheLinesBehindThem)
{
    const auto readBack = [](const PortSession& s) {
        return ParsePortSession(SplitTextLines(FormatPortSession(s)));
    };
    // Found by fuzzing: "TCPIP\r" is a serial port name with no MAC line behind it; written back
    // as "TCPIP" it must not take the module count for its MAC.
    const PortSession read = ParsePortSession(
        SplitTextLines("TCPIP\r\r\n2\n00-0e-c6-12-34-56\nPump room\n00-0e-c6-ab-cd-ef\nPress 2\n"));
    ASSERT_EQ(read.portText, "TCPIP\r");
    PortSession back = readBack(read);
    EXPECT_EQ(back.portText, "TCPIP");
    EXPECT_EQ(back.mac, "");
    EXPECT_EQ(back.names, read.names);
    EXPECT_EQ(back.names.size(), 2u);

    PortSession s;
    s.portText = "COM3";
    s.names = {{"00-0e-c6-12-34-56", "Line 1\nLine 2"},
               {"00-0e-c6-ab-cd-ef\r", "Tank\r"},
               {"00-0e-c6-00-00-01", "\r"},
               {"00-0e-c6-00-00-02", "a\rb"}};
    back = readBack(s);
    EXPECT_EQ(back.names, (std::vector<std::pair<QString, QString>>{
                              {"00-0e-c6-12-34-56", "Line 1Line 2"},
                              {"00-0e-c6-ab-cd-ef", "Tank"},
                              {"00-0e-c6-00-00-01", ""},
                              {"00-0e-c6-00-00-02", "a\rb"}}));  // kept inside a value
    // What was written once is written again byte for byte.
    EXPECT_EQ(FormatPortSession(back), FormatPortSession(s));
    EXPECT_EQ(readBack(ParsePortSession(SplitTextLines("\r"))).portText, "");
}

TEST_F(PortSessionFile, ProgramDirectoryFirstThenTemporaryDirectory)
{
    // Nothing in the program directory: the temporary one is looked at.
    const QString fallback = PortSessionFallbackPath();
    EXPECT_EQ(fallback, m_tmp.Path() + QStringLiteral("/PZ4comfile.ini"));
    EXPECT_FALSE(ReadPortSession());
    {
        QFile f(fallback);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("COM2\n");
    }
    ASSERT_TRUE(ReadPortSession());
    EXPECT_EQ(ReadPortSession()->portText, QStringLiteral("COM2"));

    PortSession s;
    s.portText = QStringLiteral("COM5");
    ASSERT_TRUE(WritePortSession(s));
    EXPECT_TRUE(QFile::exists(m_dir.File("PZ4comfile.ini")));
    EXPECT_EQ(ReadPortSession()->portText, QStringLiteral("COM5"));

    // Shorter than 4 bytes: ignored.
    m_dir.Write("PZ4comfile.ini", "C1\n");
    EXPECT_FALSE(ReadPortSession());
}

TEST_F(PortSessionFile, ModuleNamesAndChoice)
{
    CModuleList modules;
    EXPECT_EQ(modules.ButtonText(), QStringLiteral("Search IP"));
    EXPECT_EQ(modules.Chosen(), nullptr);

    modules.SetDevices({Module("00-20-4a-00-00-01", "127.0.0.2"), Module("00-20-4a-00-00-02", "127.0.0.3"),
                        Module("00-20-4a-00-00-01", "127.0.0.2")});
    EXPECT_EQ(modules.ButtonText(), QStringLiteral("127.0.0.2()"));

    PortSession file;
    file.portText = QStringLiteral("TCPIP");
    file.mac = QStringLiteral("00-20-4a-00-00-02");
    file.names = {{"00-20-4a-00-00-01", "Pump"}, {"00-20-4a-00-00-09", "Gone"}};
    modules.Apply(file);
    EXPECT_EQ(modules.ChosenIndex(), 1);  // preselected by the file
    EXPECT_EQ(modules.Devices()[0].name, QStringLiteral("Pump"));
    EXPECT_EQ(modules.Devices()[2].name, QStringLiteral("Pump"));  // both of its answers
    EXPECT_EQ(modules.KnownNames().size(), 2u);

    modules.Choose(0);
    EXPECT_EQ(modules.ButtonText(), QStringLiteral("127.0.0.2(Pump)"));
    modules.ChooseMac(QStringLiteral("00-20-4a-00-00-77"));  // gone: the first
    EXPECT_EQ(modules.ChosenIndex(), 0);
    modules.Choose(7);
    EXPECT_EQ(modules.ChosenIndex(), 0);

    modules.Chosen()->name = QStringLiteral("Fan");
    const PortSession saved = modules.ForSaving(QStringLiteral("TCPIP"));
    EXPECT_EQ(saved.mac, QStringLiteral("00-20-4a-00-00-01"));
    // The file lists what was found this time only; the known names keep the others.
    EXPECT_EQ(saved.names, (std::vector<std::pair<QString, QString>>{
                               {"00-20-4a-00-00-01", "Fan"}, {"00-20-4a-00-00-02", ""},
                               {"00-20-4a-00-00-01", "Pump"}}));
    EXPECT_EQ(modules.KnownNames(), (std::vector<std::pair<QString, QString>>{
                                        {"00-20-4a-00-00-01", "Pump"}, {"00-20-4a-00-00-09", "Gone"},
                                        {"00-20-4a-00-00-02", ""}}));
}

}  // namespace
}  // namespace quillon::test
