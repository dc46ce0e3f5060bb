// The graph watch's logic against the simulated drive: sampling frames and tick times, the
// running extremes, the store's window, the scope's geometry and readout, the time axis, the
// time per division, the failures, and the "Parameter Set" rules.

#include "MonitorFixture.h"
#include "link/Registers.h"
#include "monitor/GraphRecorder.h"
#include "monitor/GraphStoreData.h"
#include "monitor/ParamSetFields.h"
#include "monitor/ScopeGeometry.h"

namespace quillon::test {
namespace {

class GraphTest : public MonitorTest {
protected:
    void SetUp() override
    {
        OpenBus();
        GraphSettings s;
        s.station = 1;
        s.channelName = {"Set Frequency", "Output Voltage", "ACI Input", "No display"};
        s.maximum = {"50.00", "400.00", "10.00", "10.00"};
        s.minimum = {"0.00", "0.00", "2.00", "0.00"};
        m_recorder.ApplySettings(s);
    }
    // Each exchange takes `m_delay` seconds of the test's clock, which starts just before
    // midnight.
    GraphClock Clock()
    {
        return {[this] { return m_now; }, [this] {
                    return QTime(23, 59, 59, 0).addMSecs(static_cast<int>(m_now * 1000));
                }};
    }
    void TickAt(double start, double delay)
    {
        m_now = start;
        m_delay = delay;
        m_recorder.Tick();
    }

    double m_now = 0.0;
    double m_delay = 0.0;
    CDirectRunner m_slowRunner{[this] {
        m_now += m_delay;
        return &m_link;
    }};
    CGraphRecorder m_recorder{m_slowRunner, Clock()};
};

TEST_F(GraphTest, SamplesCarryTheirOwnTickTimesAndTheWindowRunsOverMidnight)
{
    SetDriveRegister(RegFrequencyCommand, 2500);
    m_recorder.Tick();  // idle: nothing is sent
    EXPECT_TRUE(TakeSent().empty());
    m_recorder.Start();
    // A slow link: the second exchange takes 350 ms, so the samples are unevenly spaced.
    TickAt(0.1, 0.0);
    TickAt(0.2, 0.35);
    TickAt(0.6, 0.0);
    EXPECT_EQ(TakeSent(), (std::vector<Frame>(3, Frame{1, 0x03, 0x25, 0x23, 0x00, 0x10})));
    const CGraphStore& store = m_recorder.Store();
    EXPECT_EQ(store.curveTimes[0], (std::deque<double>{0.1, 0.55, 0.6}));
    EXPECT_EQ(store.timeTexts, (std::deque<QString>{"23:59:59.100", "23:59:59.550", "23:59:59.600"}));
    EXPECT_EQ(store.valueTexts[0].back(), "25.00");
    EXPECT_EQ(store.valueTexts[2].back(), "");  // "ACI Input" has no register: 0, no text
    EXPECT_DOUBLE_EQ(store.curveValues[2].back(), -250.0);  // (0 - 2) * 1000 / 8
    EXPECT_EQ(store.valueTexts[3].back(), "0.0");
    EXPECT_DOUBLE_EQ(store.curveValues[0].back(), 500.0);
    const CurveFrame frame{QRect(0, 0, 600, 100), store.curveTimes[0].front(), 1.0};
    EXPECT_EQ(frame.X(store.curveTimes[0][1]) - frame.X(store.curveTimes[0][0]), 270);
    EXPECT_EQ(frame.X(store.curveTimes[0][2]) - frame.X(store.curveTimes[0][1]), 30);

    // Not full: the axis counts from Start (23:59:59.000 + 0.1 s of the clock) by divisions,
    // over midnight. Full and running: back from now. Stopped: from Start again.
    EXPECT_EQ(m_recorder.TimeAxis(0)[1], "00:00:14.000");
    m_recorder.SetDivisionMs(100);  // a window of 0.4 s: the next append trims
    TickAt(0.7, 0.0);
    EXPECT_TRUE(m_recorder.WindowFull());
    EXPECT_EQ(store.curveTimes[0], (std::deque<double>{0.55, 0.6, 0.7}));
    EXPECT_EQ(store.timeTexts.size(), 3u);
    const auto axis = m_recorder.TimeAxis(50);
    EXPECT_EQ(axis[0], "23:59:59.650");
    EXPECT_EQ(axis[4], "00:00:00.050");
    m_recorder.Stop();
    EXPECT_EQ(m_recorder.TimeAxis(50)[4], "23:59:59.400");
    TickAt(0.8, 0.0);  // stopped: nothing more arrives
    EXPECT_EQ(store.curveTimes[0].size(), 3u);
}

TEST_F(GraphTest, RunningMaximumSurvivesStartAndTheMinimumIsReset)
{
    m_recorder.Start();
    for (int hz : {3000, 1000, 2000}) {
        SetDriveRegister(RegFrequencyCommand, static_cast<std::uint16_t>(hz));
        m_recorder.Tick();
    }
    EXPECT_DOUBLE_EQ(m_recorder.RunningMax(0), 30.0);
    EXPECT_DOUBLE_EQ(m_recorder.RunningMin(0), 10.0);
    EXPECT_DOUBLE_EQ(m_recorder.LastValue(0), 20.0);
    EXPECT_DOUBLE_EQ(m_recorder.RunningMax(2), 0.0);  // an unknown channel leaves them alone
    m_recorder.Stop();
    m_recorder.Start();
    EXPECT_TRUE(m_recorder.Store().curveTimes[0].empty());
    EXPECT_DOUBLE_EQ(m_recorder.LastValue(0), 0.0);
    SetDriveRegister(RegFrequencyCommand, 1500);
    m_recorder.Tick();
    EXPECT_DOUBLE_EQ(m_recorder.RunningMax(0), 30.0);
    EXPECT_DOUBLE_EQ(m_recorder.RunningMin(0), 15.0);
}

TEST_F(GraphTest, AFailedExchangeStopsWithOneMessageAndOtherResultsLoseOnlyTheTick)
{
    m_recorder.Start();
    m_link.canned.push_back({static_cast<ErrType>(7), {}});
    m_recorder.Tick();
    EXPECT_TRUE(m_recorder.IsRunning());
    EXPECT_TRUE(m_recorder.Store().curveTimes[0].empty());
    m_recorder.Tick();
    EXPECT_EQ(m_recorder.Store().curveTimes[0].size(), 1u);
    EXPECT_TRUE(m_prompt.Messages().isEmpty());

    const struct {
        CannedLink::Canned canned;
        const char* text;
    } failures[] = {{{ErrCrc, {}}, "CRC parity error!"},
                    {{ErrTimeout, {}}, "TimeOut!"},
                    {Exception(0x03), "Communication error!"}};
    int shown = 0;
    for (const auto& f : failures) {
        m_recorder.Start();
        m_recorder.Tick();
        m_link.canned.push_back(f.canned);
        m_recorder.Tick();
        EXPECT_EQ(m_recorder.State(), RecorderState::Stopped);
        EXPECT_EQ(m_recorder.Store().curveTimes[0].size(), 1u);  // the store stays
        m_recorder.Tick();
        EXPECT_EQ(m_prompt.Messages().size(), ++shown);  // one message, the next tick is quiet
        EXPECT_EQ(m_prompt.Messages().value(shown - 1), f.text);
    }
}

TEST_F(GraphTest, ALoadedFileIsDrawnOnItsOwnScaleAndRunsPastTheWindow)
{
    GraphSettings curves = m_recorder.Settings();
    curves.minimum[0] = "10.00";
    curves.maximum[0] = "20.00";
    std::vector<GraphSampleRow> rows(2);
    rows[0].dayTime = 3600.5;
    rows[0].valueTexts[0] = "15.00";
    rows[1].dayTime = 3700.0;  // past the minute of the window
    rows[1].valueTexts[0] = "20.00";
    m_recorder.LoadRows(curves, rows);
    EXPECT_EQ(m_recorder.State(), RecorderState::Stopped);
    EXPECT_EQ(m_recorder.Store().curveValues[0], (std::deque<double>{500.0, 1000.0}));
    EXPECT_EQ(m_recorder.Store().curveTimes[0].size(), 2u);
    EXPECT_EQ(m_recorder.TimeAxis(0)[0], "01:00:00.500");
}

TEST(GraphStore, EachCurveIsTrimmedByItsOwnTimeSpan)
{
    CGraphStore store;
    for (double t : {0.0, 0.5, 1.0})
        store.AppendCurve(1, "x", t, t);  // curve 2 alone, as a loaded file fills it
    GraphSampleRow row;
    for (double t : {0.9, 1.4, 2.0}) {
        row.tick = t;
        row.timeText = QString::number(t);
        store.Append(row, 1.0);
    }
    EXPECT_EQ(store.curveTimes[0], (std::deque<double>{1.4, 2.0}));
    EXPECT_EQ(store.timeTexts, (std::deque<QString>{"1.4", "2"}));
    EXPECT_EQ(store.curveTimes[1], (std::deque<double>{1.0, 0.9, 1.4, 2.0}));
    EXPECT_EQ(store.valueTexts[1].size(), 4u);

    // The CSV lists the samples of the window under the three heading lines.
    GraphSettings s;
    const QByteArray csv = ExportGraphCsv(GraphDataOf(store, s));
    EXPECT_TRUE(csv.startsWith(",No display,No display,No display,No display\r\nMin,0.00,"));
    EXPECT_TRUE(csv.endsWith("\r\n1,,,,,2"));
}

TEST(ScopeGeometry, CurvesStayOffTheEdgesDecimateAndTheReadoutTiesRight)
{
    const CurveFrame frame{QRect(10, 20, 100, 100), 0.0, 10.0};  // 10 pixels a second
    EXPECT_EQ(frame.Y(0.0), 117);      // bottom 120 - 3
    EXPECT_EQ(frame.Y(1000.0), 23);    // top 20 + 3
    EXPECT_EQ(frame.Y(1010.0), 23);    // top - 1
    EXPECT_EQ(frame.Y(1020.0), 18);    // further out: left to the clip
    EXPECT_EQ(frame.Y(-200.0), 140);

    const std::deque<double> times{0.0, 1.0, 2.0};
    EXPECT_EQ(ReadoutIndex(times, frame, 15), 1);   // halfway between 10 and 20: the right one
    EXPECT_EQ(ReadoutIndex(times, frame, 14), 0);
    EXPECT_EQ(ReadoutIndex(times, frame, 20), 1);   // exact hit
    EXPECT_EQ(ReadoutIndex(times, frame, 30), 2);
    EXPECT_EQ(ReadoutIndex(times, frame, 31), std::nullopt);  // past the last point
    EXPECT_EQ(ReadoutIndex({0.0}, frame, 10), std::nullopt);  // one point: no readout

    // 10,000 samples over the 100 pixels of the width: one stroke over each column's range.
    std::deque<double> many, values;
    for (int i = 0; i < 10000; ++i) {
        many.push_back(i * 0.001);
        values.push_back(i % 2 ? 1000.0 : 0.0);
    }
    std::vector<QPoint> line;
    CurvePolyline(many, values, frame, line);
    EXPECT_LE(line.size(), 2u * 101);
    EXPECT_EQ(line[0], QPoint(10, 117));  // entered at the first sample's end, 0
    EXPECT_EQ(line[1], QPoint(10, 23));
    EXPECT_EQ(line[2].x(), 11);
}

TEST_F(GraphTest, DimTimeDividesTheWindowAndTheArrowsStopAtOneSecond)
{
    EXPECT_EQ(DimTimeOf(15000).minutes, 1);
    EXPECT_EQ(DimTimeOf(15000).seconds, 0);
    EXPECT_EQ(DivisionMsOf({0, 1}), 250);
    EXPECT_EQ(DivisionMsOf({1, 7}), 16750);
    EXPECT_EQ(DivisionMsOf({0, 0}), std::nullopt);
    m_recorder.SetDivisionMs(250);
    m_recorder.ArrowDown();
    EXPECT_EQ(m_recorder.DivisionMs(), 1000);
    m_recorder.ArrowUp();
    m_recorder.ArrowUp();
    m_recorder.ArrowDown();
    EXPECT_EQ(m_recorder.DivisionMs(), 2000);
}

TEST(ParamSetFields, FilterTakesDigitsToTwoDecimalsBelowTheCeiling)
{
    EXPECT_EQ(FilterLimitText("12", "12a"), "12");
    EXPECT_EQ(FilterLimitText("12", "-12"), "12");
    EXPECT_EQ(FilterLimitText("6553", "65535"), "6553");
    EXPECT_EQ(FilterLimitText("6553", "65534.99"), "65534.99");
    EXPECT_EQ(FilterLimitText("1.25", "1.257"), "1.25");
    EXPECT_EQ(FilterLimitText("", "."), ".");

    GraphSettings s;
    s.minimum = {"1", "10", "0", "0"};
    s.maximum = {"2.5", "10", "1", "1"};
    EXPECT_EQ(CheckLimits(s), 1);  // equal limits are refused
    EXPECT_EQ(s.maximum[0], "2.50");
    s.maximum[1] = "11";
    s.minimum[1] = "10.5";
    EXPECT_EQ(CheckLimits(s), -1);
    EXPECT_EQ(s.minimum[1], "10.50");

    // The list is searched without regard to case; the sampling keeps the exact name.
    EXPECT_EQ(ChannelListIndex("No display"), 0);
    EXPECT_EQ(ChannelListIndex("output frequency"), 2);
    EXPECT_EQ(ChannelListIndex("Torque"), 0);
    EXPECT_FALSE(ReadChannel("No Display", {}).known);
    EXPECT_TRUE(ReadChannel("No display", {}).known);
    EXPECT_TRUE(CurveShown("No Display"));
}

}  // namespace
}  // namespace quillon::test
