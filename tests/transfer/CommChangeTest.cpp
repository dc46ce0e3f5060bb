// The change of communication parameters: the frame, the reopened link, the session's settings.

#include "TransferFixture.h"

#include "base/Globals.h"
#include "link/ModbusFrame.h"
#include "link/Registers.h"
#include "transfer/CommChange.h"

namespace quillon::test {
namespace {

TEST(CommChoice, ParityListOpensCrossedAndMapsBackItsOwnWay) {
    g_nParityIndex = 2;  // none
    EXPECT_EQ(InitialCommChoice(1).parityList, 0);
    g_nParityIndex = 1;  // odd shows as entry 1, "even"
    EXPECT_EQ(InitialCommChoice(1).parityList, 1);
    g_nParityIndex = 0;  // even shows as entry 2, "odd"
    EXPECT_EQ(InitialCommChoice(1).parityList, 2);
    ResetGlobals();

    // Back from the list: its own meaning, for the link and for the session.
    EXPECT_EQ(LinkParityOfList(0), 0);
    EXPECT_EQ(LinkParityOfList(1), 2);  // even
    EXPECT_EQ(LinkParityOfList(2), 1);  // odd
    EXPECT_EQ(SessionParityOfList(0), 2);
    EXPECT_EQ(SessionParityOfList(1), 0);
    EXPECT_EQ(SessionParityOfList(2), 1);
}

TEST(CommChoice, StationFieldTakesOnly1To32) {
    EXPECT_EQ(FilterStationField("5", "33"), "5");
    EXPECT_EQ(FilterStationField("5", "0"), "5");
    EXPECT_EQ(FilterStationField("5", "32"), "32");
    EXPECT_EQ(FilterStationField("3", "12"), "12");
    EXPECT_EQ(FilterStationField("5", ""), "");
}

class CommChangeTest : public TransferTest {
protected:
    void SetUp() override {
        OpenBus();
        NewProject();
        g_nComPort = 0;
        g_strStationList = QStringLiteral("1");
    }
};

TEST_F(CommChangeTest, MovesTheDriveAndTheLinkToTheNewStationAndLine) {
    const CommParamChoice choice{5, 3, 0, 1};  // station 5, 38400, one stop bit, even
    ClearSent();
    ASSERT_TRUE(ApplyCommChange(m_session, m_windows, choice))
        << m_prompt.Messages().join('|').toStdString();
    EXPECT_TRUE(m_prompt.Messages().isEmpty());

    // One frame to the old station with the six registers, the two zeros fixed.
    const auto sent = SentSince();
    ASSERT_GE(sent.size(), 1u);
    const Frame& frame = sent[0];
    ASSERT_EQ(frame.size(), std::size_t(WriteMultipleLength(6)));
    EXPECT_EQ(frame[0], 1);
    EXPECT_EQ(RequestRegister(frame), RegCommBlock);
    const std::vector<int> values{FrameWord(frame.data(), 7),  FrameWord(frame.data(), 9),
                                  FrameWord(frame.data(), 11), FrameWord(frame.data(), 13),
                                  FrameWord(frame.data(), 15), FrameWord(frame.data(), 17)};
    EXPECT_EQ(values, (std::vector<int>{5, 0, 3, 0, 1, 0}));

    // The drive answers as 5 on the new line now, and the link was reopened for it.
    const LineSettings line = m_bus->Line();
    EXPECT_EQ(line.m_nBaud, 38400);
    EXPECT_EQ(line.m_parity, Parity::Even);
    EXPECT_EQ(line.m_nStopBits, 1);
    const OpenRequest reopened = Opens().back();
    EXPECT_EQ(reopened.m_strPortName, "COM1");
    EXPECT_EQ(reopened.m_line.m_nBaud, 38400);
    EXPECT_EQ(reopened.m_line.m_parity, Parity::Even);
    EXPECT_EQ(reopened.m_line.m_nStopBits, 1);
    EXPECT_EQ(reopened.m_line.m_nDataBits, 8);
    EXPECT_EQ(m_session.m_stations.front(), 5);
    EXPECT_EQ(g_strStationList, "5");
    EXPECT_EQ(g_nBaudIndex, 3);
    EXPECT_EQ(g_nStopBitsIndex, 0);
    EXPECT_EQ(g_nParityIndex, 0);  // the session's even
    // The run source and the identification were read from station 5.
    for (std::size_t i = 1; i < sent.size(); ++i) EXPECT_EQ(sent[i][0], 5);
    EXPECT_EQ(sent.size(), 3u);
    EXPECT_TRUE(m_bus->WithStation(5, [](sim::SimDrive&) {}));
}

TEST_F(CommChangeTest, DriveThatDoesNotTakeItChangesNothing) {
    SetIntercept([](const Frame& f) -> std::optional<Frame> {
        if (RequestRegister(f) == RegCommBlock) return Frame{};  // no answer
        return std::nullopt;
    });
    const std::size_t opens = Opens().size();
    EXPECT_FALSE(ApplyCommChange(m_session, m_windows, CommParamChoice{5, 3, 0, 1}));
    EXPECT_EQ(m_prompt.Messages(), QStringList{"TimeOut!"});
    EXPECT_EQ(m_session.m_stations.front(), 1);
    EXPECT_EQ(g_strStationList, "1");
    EXPECT_EQ(g_nBaudIndex, 2);
    EXPECT_EQ(Opens().size(), opens);

    SetIntercept([](const Frame& f) -> std::optional<Frame> {
        if (RequestRegister(f) == RegCommBlock) return ExceptionReply(f, 'T');
        return std::nullopt;
    });
    EXPECT_FALSE(ApplyCommChange(m_session, m_windows, CommParamChoice{5, 3, 0, 1}));
    EXPECT_EQ(m_prompt.Messages().last(), "DATA Over Range");
    EXPECT_EQ(m_session.m_stations.front(), 1);
}

TEST_F(CommChangeTest, ModuleLinkComesBackAsSerialPortZeroAndIsLost) {
    g_nComPort = -1;  // linked through a network module
    const std::size_t opens = Opens().size();
    EXPECT_FALSE(ApplyCommChange(m_session, m_windows, CommParamChoice{7, 2, 1, 0}));
    // "COM0" names no port: the drive is on its new settings, the program without a link.
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Can't Open the Port!"});
    EXPECT_EQ(m_windows.linkDeletes, 1);
    EXPECT_EQ(Opens().size(), opens);
    EXPECT_EQ(m_session.m_stations.front(), 7);
    EXPECT_TRUE(m_bus->WithStation(7, [](sim::SimDrive&) {}));
    EXPECT_EQ(g_nBaudIndex, 2);  // the session's line settings stay
}

}  // namespace
}  // namespace quillon::test
