// The graph window on the simulated drive, its exchanges on the worker: a run-up and stop
// recorded and read with the cursor, a dead line that stops only the sampling, and the
// "Parameter Set" dialog's filter and refusal.

#include "MonitorFixture.h"
#include "link/Registers.h"
#include "monitor/GraphDlg.h"
#include "monitor/ParamSetDlg.h"
#include "monitor/ScopeWnd.h"
#include "monitor/SetTimeDlg.h"
#include "shell/CommandIds.h"
#include "support/AppSession.h"
#include "support/WidgetTestSupport.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <atomic>

namespace quillon::test {
namespace {

class GraphWidgetsTest : public MonitorTest {
protected:
    MonitorContext Context()
    {
        MonitorContext c;
        c.stations = {1};
        c.link = [this] { return m_bDead ? nullptr : &m_link; };
        c.linked = [] { return true; };
        return c;
    }
    std::atomic<bool> m_bDead{false};
};

TEST_F(GraphWidgetsTest, RecordsARunUpAndStopAndADeadLineStopsOnlyTheSampling)
{
    OpenBus();
    SetDriveRegister(0x000E, 20);  // 00-14 acceleration 2.0 s
    SetDriveRegister(0x000F, 15);  // 00-15 deceleration 1.5 s
    SetDriveRegister(RegFrequencyCommand, 5000);
    GraphSettings session;
    session.channelName = {"Output Frequency", "Set Frequency", "Output Current", "Output Voltage"};
    session.maximum = {"60.00", "60.00", "20.00", "400.00"};
    CGraphDlg dlg(Context(), session);
    EXPECT_EQ(session.station, 1);  // the first linked station
    dlg.resize(760, 520);
    dlg.show();
    EXPECT_FALSE(dlg.Action("Export")->isEnabled());
    dlg.Recorder().SetDivisionMs(2000);  // an 8 s window
    dlg.Action("Start")->trigger();
    EXPECT_TRUE(dlg.SamplingTimer()->isActive());
    EXPECT_TRUE(dlg.StripTimer()->isActive());
    SetDriveRegister(RegControlWord, ControlBit::Run);
    QTest::qWait(3500);
    SetDriveRegister(RegControlWord, 0);
    QTest::qWait(2500);
    const CGraphRecorder& rec = dlg.Recorder();
    const int samples = rec.Store().Count(0);
    EXPECT_GE(samples, 50);
    EXPECT_DOUBLE_EQ(rec.RunningMax(0), 50.0);
    EXPECT_DOUBLE_EQ(rec.RunningMin(0), 0.0);
    EXPECT_EQ(rec.Store().valueTexts[1].back(), "50.00");

    // The cursor over the middle of the plot reads the curves there.
    const ScopeLayout l = LayoutScope(dlg.Scope()->rect());
    QTest::mouseMove(dlg.Scope(), QPoint(l.plot.x() + l.plot.width() * 3 / 8, l.plot.y() + 40));
    EXPECT_EQ(dlg.Scope()->CursorPos().x(), l.plot.x() + l.plot.width() * 3 / 8);
    SaveScreenshot(dlg, "graph-watch.png");

    // A dead line: one message, the sampling stops, the store and the strip's timer stay.
    m_bDead = true;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !m_prompt.Messages().isEmpty(); }, 3000));
    QTest::qWait(300);
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Communication error!"});
    EXPECT_FALSE(dlg.SamplingTimer()->isActive());
    EXPECT_TRUE(dlg.StripTimer()->isActive());
    EXPECT_GE(rec.Store().Count(0), samples);
    dlg.Action("Stop")->trigger();
    EXPECT_FALSE(dlg.StripTimer()->isActive());
    EXPECT_EQ(session.channelName[0], "Output Frequency");
}

TEST_F(GraphWidgetsTest, ParameterSetFiltersLimitsAndRefusesAMaximumNotAboveItsMinimum)
{
    GraphSettings settings;
    settings.channelName[2] = "output voltage";
    CParamSetDlg dlg({1, 3}, settings);
    dlg.show();
    EXPECT_EQ(dlg.ChannelList(0)->currentIndex(), 0);  // "No display" finds "No Display"
    EXPECT_EQ(dlg.ChannelList(2)->currentText(), "Output Voltage");
    QLineEdit* max1 = dlg.MaximumEdit(1);
    max1->setFocus();
    max1->selectAll();
    QTest::keyClicks(max1, "1x0.009");
    EXPECT_EQ(max1->text(), "10.00");
    dlg.MinimumEdit(1)->setText("10");
    dlg.StationList()->setCurrentIndex(1);
    dlg.accept();
    EXPECT_EQ(m_prompt.Messages(), QStringList{"The maximum value must be larger than the minimum value!"});
    EXPECT_TRUE(dlg.isVisible());
    EXPECT_EQ(dlg.focusWidget(), max1);
    EXPECT_EQ(max1->selectedText(), "10.00");
    max1->setText("11");
    dlg.accept();
    EXPECT_EQ(dlg.result(), QDialog::Accepted);
    EXPECT_EQ(dlg.Settings().station, 3);
    EXPECT_EQ(dlg.Settings().maximum[1], "11.00");
    EXPECT_EQ(dlg.Settings().channelName[0], "No Display");
}

TEST_F(GraphWidgetsTest, SetTimeKeepsNumbersOnlyAndRefusesNoTime)
{
    CSetTimeDlg dlg(15000);
    dlg.show();
    EXPECT_EQ(dlg.MinutesEdit()->text(), "1");
    EXPECT_EQ(dlg.SecondsEdit()->text(), "0");
    dlg.MinutesEdit()->setText("x");
    EXPECT_EQ(dlg.MinutesEdit()->text(), "1");
    dlg.MinutesEdit()->setText("0");
    dlg.accept();
    EXPECT_EQ(m_prompt.Messages(), QStringList{"The interval time must be more than 0s !"});
    EXPECT_TRUE(dlg.isVisible());
    dlg.SecondsEdit()->setText("1");
    dlg.accept();
    EXPECT_EQ(dlg.DivisionMs(), 250);
}

TEST(GraphWatchCommand, SetWritesTheChannelsBackIntoTheSession)
{
    ScriptedPrompt prompt;
    AppSession s;
    s.NewProject("R770-201-Kxx");
    s.frame->Session().m_stations = {1, 4};
    s.frame->Session().m_bOnline = 1;
    s.frame->UpdateCommandUI();
    OnNextModal<CGraphDlg>([](CGraphDlg& dlg) {
        EXPECT_TRUE(dlg.Action("Set")->isEnabled());
        OnNextModal<CParamSetDlg>([](CParamSetDlg& set) {
            set.StationList()->setCurrentIndex(1);
            set.ChannelList(0)->setCurrentIndex(2);
            set.accept();
        });
        dlg.OnSet();
        EXPECT_EQ(dlg.Recorder().Settings().station, 4);
        dlg.reject();
    });
    s.frame->OnCommand(CmdId::GraphWatch);
    const GraphSettings& kept = s.frame->Session().m_graphSettings;
    EXPECT_EQ(kept.station, 4);
    EXPECT_EQ(kept.channelName[0], "Output Frequency");
    EXPECT_EQ(kept.channelIndex[0], 2);
    EXPECT_EQ(kept.maximum[0], "10.00");
}

}  // namespace
}  // namespace quillon::test
