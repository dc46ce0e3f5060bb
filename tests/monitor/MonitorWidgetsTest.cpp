// Both monitoring windows on the simulated drive, their exchanges on the worker: the panel runs
// the drive, the status monitor it opens shows it, and a dead line never freezes a window.

#include "MonitorFixture.h"
#include "link/Registers.h"
#include "monitor/KeyPadDlg.h"
#include "monitor/KeyPadPicture.h"
#include "monitor/MonitorControlDlg.h"
#include "monitor/MonitorStatusDlg.h"
#include "shell/CommandIds.h"
#include "support/AppSession.h"
#include "support/WidgetTestSupport.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

namespace quillon::test {
namespace {

class MonitorWidgetsTest : public MonitorTest {
protected:
    MonitorContext Context() { return MonitorContext{{1}, [this] { return &m_link; }, {}, {}}; }
    void Click(QPushButton* b)
    {
        ASSERT_NE(b, nullptr);
        QTest::mouseClick(b, Qt::LeftButton);
    }
};

// The lamp at (x, y) of a page as painted: lit red, lit green or dark.
QColor LampPixel(QWidget& page, int x, int y)
{
    return page.grab().toImage().pixelColor(x + kLampSize / 2, y + kLampSize / 2);
}
bool LitRed(const QColor& c) { return c.red() > 180 && c.red() - c.green() > 100; }
bool LitGreen(const QColor& c) { return c.green() > 180 && c.green() - c.red() > 100; }

TEST_F(MonitorWidgetsTest, PanelRunsTheDriveAndTheStatusMonitorShowsIt)
{
    sim::BusSetup setup = TestBusSetup();
    setup.terminals = 0x45;
    OpenBus(setup);
    CMonitorControlDlg panel(Context(), 0);
    panel.show();
    EXPECT_FALSE(panel.GraphButton()->isEnabled());  // no graph watch yet
    panel.FrequencyEdit()->selectAll();
    QTest::keyClicks(panel.FrequencyEdit(), "30.005x");  // the third decimal and the x are refused
    EXPECT_EQ(panel.FrequencyEdit()->text(), "30.00");
    Click(panel.Button("Set"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return DriveRegister(RegMonitorBlock) == 3000; }, 3000));
    Click(panel.Button("RUN"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return DriveRegister(RegStatusWord) & StatusBit::Running; }, 3000));

    Click(panel.ShowStatusButton());
    CMonitorStatusDlg* status = panel.StatusMonitor();
    ASSERT_NE(status, nullptr);
    EXPECT_FALSE(status->ShowControlButton()->isEnabled());
    EXPECT_EQ(status->pos(), panel.frameGeometry().topRight());
    CStatusPage& page = *status->StatusPage();
    EXPECT_FALSE(LitRed(LampPixel(page, 143, 189)));  // dark before Start

    for (QPushButton* b : status->findChildren<QPushButton*>())
        if (b->text() == "Start") Click(b);
    ASSERT_TRUE(QTest::qWaitFor([&] { return page.Page().Polls() >= 3; }, 5000));
    EXPECT_TRUE(page.Timer()->isActive() && status->TerminalPage()->Timer()->isActive());
    EXPECT_TRUE(LitRed(LampPixel(page, 143, 189)));    // run
    EXPECT_TRUE(LitGreen(LampPixel(page, 143, 117)));  // ready
    const std::uint16_t output = page.Page().Word(StatusWordIndex::FirstValue + Monitor::OutputFrequency);
    EXPECT_GT(output, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] {
        return page.Page().Word(StatusWordIndex::FirstValue + Monitor::OutputFrequency) > output;
    }, 3000));
    SaveScreenshot(*status, "monitor-status.png");
    status->Tabs()->setCurrentIndex(1);
    EXPECT_TRUE(LitGreen(LampPixel(*status->TerminalPage(), 251, kTerminalLampY)));  // R1
    EXPECT_FALSE(LitGreen(LampPixel(*status->TerminalPage(), 335, kTerminalLampY)));  // DI2
    SaveScreenshot(*status, "monitor-terminal.png");

    // Jog: the button's text follows the drive at the next poll.
    Click(panel.Button("Jog forward"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return panel.Button("Stop jog forward") != nullptr; }, 3000));
    SaveScreenshot(panel, "monitor-control.png");
    EXPECT_TRUE(m_prompt.Messages().isEmpty());
}

TEST_F(MonitorWidgetsTest, DeadLineNeverFreezesTheWindow)
{
    OpenBus();
    m_bus->SetSilent(1, true);
    CMonitorControlDlg panel(Context(), 0);
    panel.show();
    QElapsedTimer clock;
    clock.start();
    Click(panel.Button("RUN"));
    Click(panel.Button("Set"));
    EXPECT_LT(clock.elapsed(), 100);
    // The poll's time-out stops the timer with its word; the commands say theirs.
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_prompt.Messages().size() >= 3; }, 5000));
    EXPECT_FALSE(panel.PollTimer()->isActive());
    EXPECT_EQ(m_prompt.Messages(), QStringList(3, "TimeOut!"));
}

TEST_F(MonitorWidgetsTest, KeyPadDrivesTheDriveFromItsPicture)
{
    OpenBus();
    SetDriveRegister(RegRunSource, 2);
    SetDriveRegister(RegRunSource + 3, 5);  // 00-05
    SetDriveRegister(RegUpperLimit, 6000);
    SetDriveRegister(RegLowerLimit, 0);
    CKeyPadDlg dlg(Context());
    dlg.show();
    CKeyPad& keypad = dlg.KeyPad();
    ASSERT_TRUE(QTest::qWaitFor([&] { return keypad.FreqFromLink(); }, 3000));

    // Drag the knob from its left to its right: 50 Hz goes out when the button comes up.
    CKeyPadPicture* picture = dlg.Picture();
    QTest::mousePress(picture, Qt::LeftButton, {}, QPoint(232, 193));
    QMouseEvent move(QEvent::MouseMove, QPointF(264, 193), picture->mapToGlobal(QPointF(264, 193)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(picture, &move);
    EXPECT_EQ(dlg.FrequencyEdit()->text(), "50.00");
    QTest::mouseRelease(picture, Qt::LeftButton, {}, QPoint(264, 193));
    ASSERT_TRUE(QTest::qWaitFor([&] { return DriveRegister(RegMonitorBlock) == 5000; }, 3000));
    QTest::keyClick(picture, Qt::Key_PageDown);  // the knob by keyboard, 1 Hz down
    ASSERT_TRUE(QTest::qWaitFor([&] { return DriveRegister(RegMonitorBlock) == 4900; }, 3000));

    // UP shows the output frequency on the LED display; RUN starts the drive.
    QTest::mouseClick(picture, Qt::LeftButton, {}, QPoint(76, 158));
    EXPECT_EQ(dlg.DisplayList()->currentText(), "2: Output Frequency");
    QTest::mouseClick(picture, Qt::LeftButton, {}, QPoint(76, 274));
    ASSERT_TRUE(QTest::qWaitFor([&] { return keypad.LedText().toDouble() > 5.0; }, 5000));
    const QImage shown = picture->grab().toImage();
    const double dpr = shown.devicePixelRatio();  // also run at QT_SCALE_FACTOR=2
    int lit = 0;
    for (int x = 100; x < 230; ++x)
        lit += LitRed(shown.pixelColor(QPointF(x * dpr, 78 * dpr).toPoint()));
    EXPECT_GT(lit, 10);  // the middle bars of the digits
    SaveScreenshot(dlg, "keypad.png");
    EXPECT_TRUE(dlg.TickTimer()->isActive());
    EXPECT_TRUE(m_prompt.Messages().isEmpty());
}

TEST(MonitorCommands, StatusAndControlOpenOnTheFramesLinkAndCloseWhatTheyOpened)
{
    ScriptedPrompt prompt;
    AppSession app;
    auto bus = std::make_shared<sim::SimBus>(TestBusSetup());
    auto line = std::make_shared<sim::SimLine>();
    ScopedChannelFactory factory(sim::SimChannelFactory(bus, line));
    ASSERT_EQ(app.frame->LinkSession().EnsureLink().InitComm("COM1", 19200, 8, 0, 2.0f), 1);
    app.frame->Session().m_bOnline = 1;
    app.frame->Session().m_stations = {1};

    QPointer<CMonitorStatusDlg> status;
    OnNextModal<CMonitorControlDlg>([&](CMonitorControlDlg& panel) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !line->Sent().empty(); }, 3000));
        EXPECT_EQ(line->Sent().front()[3], 0x01);  // the control word of station 1
        panel.OnShowStatus();
        status = panel.StatusMonitor();
        panel.reject();
    });
    app.frame->OnCommand(CmdId::Control);
    EXPECT_TRUE(status.isNull());  // closed with the panel

    OnNextModal<CMonitorStatusDlg>([&](CMonitorStatusDlg& dlg) {
        EXPECT_FALSE(dlg.StatusPage()->Timer()->isActive());  // nothing polls before Start
        dlg.reject();
    });
    app.frame->OnCommand(CmdId::Status);
    OnNextModal<CKeyPadDlg>([&](CKeyPadDlg& dlg) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return dlg.KeyPad().UpperLimit() > 0; }, 3000));
        dlg.reject();
    });
    app.frame->OnCommand(CmdId::KeyPad);
    EXPECT_TRUE(prompt.Messages().isEmpty());
    app.frame->close();
}

}  // namespace
}  // namespace quillon::test
