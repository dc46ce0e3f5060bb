// The graph window on the simulated drive, its exchanges on the worker: a run-up and stop
// recorded and read with the cursor, a dead line that stops only the sampling, the graph data
// files and the picture, and the "Parameter Set" dialog's filter and refusal.

#include "MonitorFixture.h"
#include "exchange/ExportFormatDlg.h"
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
#include <QFile>
#include <QLineEdit>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>
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

TEST_F(GraphWidgetsTest, ExportedSamplesImportBackAsAStoppedRunAndSaveWritesTheWindowAsBmp)
{
    GraphSettings session;
    session.channelName = {"Output Frequency", "DC Voltage", "No display", "No display"};
    session.maximum = {"60.00", "400", "10.00", "10.00"};
    session.minimum[1] = "250";
    CGraphDlg dlg(Context(), session);
    dlg.show();
    CGraphRecorder& rec = dlg.Recorder();
    for (int i = 0; i < 5; ++i) {
        GraphSampleRow row;
        row.tick = 100.0 + 0.1 * i;
        row.timeText = ClockText(3600000 + 100 * i);
        const std::array<double, kGraphChannels> values{10.0 * i, 300.0 + i, 0.0, 0.0};
        for (int c = 0; c < kGraphChannels; ++c) {
            row.valueTexts[c] = QString::number(values[c], 'f', c == 0 ? 2 : 0);
            row.samples[c] = (values[c] - rec.ScaleMin(c)) * rec.Scale(c);
        }
        rec.AppendSample(row);
    }
    const CGraphStore recorded = rec.Store();
    QTemporaryDir dir;
    for (const QString name : {"g.csv", "g.xlsx"}) {
        OnNextModal<CExportFormatDlg>([&name](CExportFormatDlg& d) {
            (name.endsWith(".csv") ? d.CsvButton() : d.ExcelButton())->click();
            d.accept();
        });
        m_prompt.FileName(dir.filePath(name));
        dlg.Action("Export")->trigger();
        if (name.endsWith(".csv")) {
            QFile csv(dir.filePath(name));
            ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
            EXPECT_TRUE(csv.readAll().startsWith(",Output Frequency,DC Voltage,No display,No display\r\n"
                                                 "Min,0.00,250,0.00,0.00\r\nMax,60.00,400,"));
        }
        GraphSettings other;
        rec.LoadRows(other, {});  // a blank window
        m_prompt.FileName(dir.filePath(name));
        dlg.Action("Import")->trigger();
        EXPECT_EQ(rec.State(), RecorderState::Stopped);
        EXPECT_EQ(rec.Settings().channelName, session.channelName);
        EXPECT_EQ(rec.Settings().minimum[1], "250");
        EXPECT_EQ(rec.Store().valueTexts, recorded.valueTexts);
        EXPECT_EQ(rec.Store().curveValues, recorded.curveValues);
        EXPECT_EQ(rec.Store().timeTexts, recorded.timeTexts);
        EXPECT_NEAR(rec.Store().curveTimes[1].back() - rec.Store().curveTimes[1].front(), 0.4, 1e-9);
        EXPECT_EQ(rec.TimeAxis(0)[0], "01:00:00.000");  // the first sample is the time of Start
    }
    EXPECT_EQ(m_prompt.Messages(), (QStringList{"Export success.", "Import success."}));

    m_prompt.FileName(dir.filePath("graph.bmp"));
    dlg.Action("Save")->trigger();
    QFile file(dir.filePath("graph.bmp"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bmp = file.readAll();
    ASSERT_GT(bmp.size(), 54);
    const auto u32 = [&bmp](int at) { return qFromLittleEndian<quint32>(bmp.constData() + at); };
    EXPECT_TRUE(bmp.startsWith("BM"));
    EXPECT_EQ(u32(2), static_cast<quint32>(bmp.size()));
    EXPECT_EQ(u32(10), 54u);
    EXPECT_EQ(u32(18), static_cast<quint32>(dlg.width()));
    EXPECT_EQ(u32(22), static_cast<quint32>(dlg.height()));
    EXPECT_EQ(qFromLittleEndian<quint16>(bmp.constData() + 28), 32);
    EXPECT_EQ(bmp.size(), 54 + 4 * dlg.width() * dlg.height());
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
