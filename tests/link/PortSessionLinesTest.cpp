// PZ4comfile.ini holds one value a line. Values that a line can't hold as they are (a line feed
// inside, a carriage return at the end) must not move the lines behind them.

#include "base/TextFile.h"
#include "link/PortSessionFile.h"

#include <gtest/gtest.h>

using namespace quillon;

namespace {

PortSession ReadBack(const PortSession& session) {
    return ParsePortSession(SplitTextLines(FormatPortSession(session)));
}

}  // namespace

TEST(PortSessionLines, OrdinarySessionReadsBackUnchanged) {
    PortSession s;
    s.portText = "TCPIP";
    s.mac = "00-0e-c6-12-34-56";
    s.names = {{"00-0e-c6-12-34-56", "Pump room"}, {"00-0e-c6-ab-cd-ef", ""}};
    EXPECT_EQ(FormatPortSession(s),
              "TCPIP\n00-0e-c6-12-34-56\n2\n00-0e-c6-12-34-56\nPump room\n00-0e-c6-ab-cd-ef\n \n");
    const PortSession back = ReadBack(s);
    EXPECT_EQ(back.portText, s.portText);
    EXPECT_EQ(back.mac, s.mac);
    EXPECT_EQ(back.names, s.names);
}

// Found by fuzzing: a file whose first line is "TCPIP\r\r\n" reads as the port "TCPIP\r", a
// serial port name with no MAC line behind it. Written back as "TCPIP\r\n", it read as the TCP
// port, and the module count became its MAC: the names were lost.
TEST(PortSessionLines, PortTextEndingInCarriageReturnKeepsTheNames) {
    const QByteArray file = "TCPIP\r\r\n2\n00-0e-c6-12-34-56\nPump room\n00-0e-c6-ab-cd-ef\nPress 2\n";
    const PortSession read = ParsePortSession(SplitTextLines(file));
    ASSERT_EQ(read.portText, "TCPIP\r");
    ASSERT_EQ(read.names.size(), 2u);

    const PortSession back = ReadBack(read);
    EXPECT_EQ(back.portText, "TCPIP");
    EXPECT_EQ(back.mac, "");
    ASSERT_EQ(back.names.size(), 2u);
    EXPECT_EQ(back.names[0].first, "00-0e-c6-12-34-56");
    EXPECT_EQ(back.names[0].second, "Pump room");
    EXPECT_EQ(back.names[1].first, "00-0e-c6-ab-cd-ef");
    EXPECT_EQ(back.names[1].second, "Press 2");
}

TEST(PortSessionLines, NamesWithLineBreaksStayOnTheirLine) {
    PortSession s;
    s.portText = "COM3";
    s.names = {{"00-0e-c6-12-34-56", "Line 1\nLine 2"},
               {"00-0e-c6-ab-cd-ef\r", "Tank\r"},
               {"00-0e-c6-00-00-01", "\r"},
               {"00-0e-c6-00-00-02", "a\rb"}};
    const PortSession back = ReadBack(s);
    EXPECT_EQ(back.portText, "COM3");
    ASSERT_EQ(back.names.size(), 4u);
    EXPECT_EQ(back.names[0].first, "00-0e-c6-12-34-56");
    EXPECT_EQ(back.names[0].second, "Line 1Line 2");
    EXPECT_EQ(back.names[1].first, "00-0e-c6-ab-cd-ef");
    EXPECT_EQ(back.names[1].second, "Tank");
    EXPECT_EQ(back.names[2].second, "");  // nothing left: no name
    EXPECT_EQ(back.names[3].second, "a\rb");  // a carriage return inside a value is kept
    // And what was written once is written again byte for byte.
    EXPECT_EQ(FormatPortSession(back), FormatPortSession(s));
}

TEST(PortSessionLines, LoneCarriageReturnIsAnEmptyPortText) {
    const PortSession read = ParsePortSession(SplitTextLines("\r"));
    EXPECT_EQ(read.portText, "\r");
    EXPECT_EQ(ReadBack(read).portText, "");
    EXPECT_EQ(FormatPortSession(read), "\n");
}
