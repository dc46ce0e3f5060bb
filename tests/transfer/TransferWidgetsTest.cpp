// The transfer's dialogs as a person meets them, and the commands on the main window over the
// simulated drive.

#include "LinkTestSupport.h"
#include "base/Globals.h"
#include "base/StatusPanes.h"
#include "base/TextTable.h"
#include "params/ProjectFile.h"
#include "exchange/CompareDlg.h"
#include "exchange/CompareUi.h"
#include "exchange/PrintUi.h"
#include "link/ChannelFactory.h"
#include "shell/CommandIds.h"
#include "shell/MainFrame.h"
#include "sim/SimChannel.h"
#include "support/AppSession.h"
#include "support/ScriptedPrompt.h"
#include "support/UiBeat.h"
#include "support/WidgetTestSupport.h"
#include "transfer/TransferDialogs.h"
#include "transfer/TransferUi.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QProgressBar>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace quillon::test {
namespace {

TEST(TransferDialogs, PasswordDialogsCheckOnOkAndStayOpenOnAFailure) {
    ScriptedPrompt prompt;
    CPasswordSetDlg set;
    EXPECT_EQ(set.PasswordEdit()->maxLength(), 5);
    EXPECT_EQ(set.RepeatEdit()->echoMode(), QLineEdit::Password);
    set.show();
    QTest::keyClicks(set.PasswordEdit(), "1234567");  // five characters at most
    EXPECT_EQ(set.PasswordEdit()->text(), "12345");
    set.RepeatEdit()->setText("12344");
    set.accept();
    EXPECT_TRUE(set.isVisible());
    EXPECT_EQ(prompt.Messages(), QStringList{"The repeat password is not same as new password!"});
    set.RepeatEdit()->setText("12345");
    set.accept();
    EXPECT_EQ(set.result(), QDialog::Accepted);
    EXPECT_EQ(set.Password(), "12345");

    CChangePasswordDlg change;
    change.show();
    change.OldEdit()->setText("65536");
    change.NewEdit()->setText("1");
    change.accept();
    EXPECT_EQ(prompt.Messages().last(), "Beyond the range!");
    EXPECT_TRUE(change.isVisible());

    CPasswordInputDlg input;
    input.show();
    input.PasswordEdit()->setText("12a");
    input.accept();
    EXPECT_EQ(prompt.Messages().last(), "The password must be the DEC value!!");
    input.PasswordEdit()->clear();  // an empty field passes and counts as 0
    input.accept();
    EXPECT_EQ(input.result(), QDialog::Accepted);
}

TEST(TransferDialogs, WriteDialogFiltersKeystrokesAndChecksTheStations) {
    ScriptedPrompt prompt;
    CWriteDlg dlg({1, 3, 5});
    EXPECT_TRUE(dlg.SingleButton()->isChecked());
    dlg.show();
    QTest::keyClicks(dlg.StationEdit(), "1,3x-5 ");
    EXPECT_EQ(dlg.StationEdit()->text(), "1,3-5");

    dlg.StationEdit()->clear();
    dlg.accept();
    EXPECT_EQ(prompt.Messages().last(), "The station num is not empty!");
    dlg.StationEdit()->setText("1,7");
    dlg.accept();
    EXPECT_EQ(prompt.Messages().last(), "The Station Number 7 hasn't exist!!");
    EXPECT_EQ(dlg.StationEdit()->selectedText(), "1,7");
    EXPECT_TRUE(dlg.isVisible());

    dlg.StationEdit()->setText("5,1");
    dlg.accept();
    EXPECT_EQ(dlg.Stations(), (std::vector<int>{5, 1}));

    CWriteDlg all({1});
    all.AllButton()->setChecked(true);
    all.accept();
    EXPECT_EQ(all.Stations(), std::vector<int>{0});  // the broadcast
}

TEST(TransferDialogs, UnwrittenParametersAndTheProgressWindow) {
    CUnwrittenParamDlg list(
        {MotorParam{"02-00", "Motor no-load current"}, MotorParam{"02-01", "Motor rated current"}});
    ASSERT_EQ(list.List()->rowCount(), 2);
    EXPECT_EQ(list.List()->item(1, 0)->text(), "02-01");
    EXPECT_EQ(list.List()->item(1, 1)->text(), "Motor rated current");

    EXPECT_EQ(ProgressOrigin(QRect(100, 50, 900, 500)), QPoint(400, 450));
    EXPECT_EQ(ProgressOrigin(QRect(0, 0, 700, 500), 4), QPoint(233, 100));
    QWidget main;
    main.setGeometry(100, 50, 900, 500);
    CProgressDlg progress(&main);
    progress.Show("Read Inverter function parameter...,");
    EXPECT_TRUE(progress.IsVisible());
    EXPECT_EQ(progress.windowTitle(), "Read Inverter function parameter...,");
    // Where the platform puts it, give or take its frame.
    EXPECT_LE((progress.pos() - ProgressOrigin(main.frameGeometry())).manhattanLength(), 8);
    progress.SetRange(0, 15);
    progress.SetPos(4);
    progress.SetLabel("04-XX --Station Num:1");
    EXPECT_EQ(progress.Bar()->value(), 4);
    EXPECT_EQ(progress.Label()->text(), "04-XX --Station Num:1");
    progress.Hide();
    EXPECT_FALSE(progress.IsVisible());
}

class NoWindows final : public ITransferWindows {
public:
    IProgress& Progress() override { std::abort(); }
    void SetStatusPane(int, const QString&) override {}
    void RefreshList() override {}
    CM330Doc* Document() override { return nullptr; }
    CM330Doc* NewDocumentForDrive() override { return nullptr; }
    bool SaveProject() override { return false; }
    CDriveSerial* Link() override { return nullptr; }
    void DeleteLink() override {}
    void ShowUnwrittenParams(const std::vector<MotorParam>&) override {}
    void SetRefreshTimer(bool) override {}
    std::optional<QString> AskPasswordSet() override { return std::nullopt; }
    std::optional<ChangePasswordEntry> AskChangePassword() override { return std::nullopt; }
    std::optional<QString> AskPasswordInput() override { return std::nullopt; }
};

TEST(TransferDialogs, CommParamDialogOpensCrossedAndKeepsTheStationIn1To32) {
    ScriptedPrompt prompt;
    ResetGlobals();
    g_nBaudIndex = 1;
    g_nStopBitsIndex = 0;
    g_nParityIndex = 1;  // odd
    SessionState session;
    session.m_stations = {4};
    NoWindows windows;
    CCommParamDlg dlg(session, windows);
    EXPECT_EQ(dlg.BaudList()->currentText(), "1:9600");
    EXPECT_EQ(dlg.StopList()->currentText(), "0:1停止位");
    EXPECT_EQ(dlg.ParityList()->currentText(), "1:偶位");  // the session's odd, shown crossed
    EXPECT_EQ(dlg.StationEdit()->text(), "4");

    dlg.show();
    dlg.StationEdit()->selectAll();
    QTest::keyClicks(dlg.StationEdit(), "3");
    QTest::keyClicks(dlg.StationEdit(), "3");  // 33 gives way to the last good number
    EXPECT_EQ(dlg.StationEdit()->text(), "3");
    QTest::keyClicks(dlg.StationEdit(), "2");
    EXPECT_EQ(dlg.StationEdit()->text(), "32");

    // Without an answering drive nothing changes and the dialog stays.
    dlg.accept();
    EXPECT_EQ(prompt.Messages(), QStringList{"Communication error!"});
    EXPECT_TRUE(dlg.isVisible());
    EXPECT_EQ(session.m_stations.front(), 4);
    ResetGlobals();
}

// The main window with the simulated drive linked on "COM1".
class FrameTransferTest : public ::testing::Test {
protected:
    void SetUp() override {
        sim::BusSetup setup = TestBusSetup();
        setup.faults.extraDelayMs = m_nReplyDelayMs;
        m_bus = std::make_shared<sim::SimBus>(setup);
        m_line = std::make_shared<sim::SimLine>();
        m_factory.emplace(sim::SimChannelFactory(m_bus, m_line));
        CDriveSerial& link = m_app.frame->LinkSession().EnsureLink();
        ASSERT_EQ(link.InitComm(QStringLiteral("COM1"), 19200, 8, 0, 2.0f), 1);
        SessionState& s = m_app.frame->Session();
        s.m_bOnline = 1;
        s.m_stations = {1};
        m_app.NewProject(QStringLiteral("R770-2P5-Kxx"));
    }
    void TearDown() override {
        if (CM330Doc* doc = m_app.frame->Document()) doc->SetModifiedFlag(false);
        m_app.frame->close();
    }
    CTransferUi& Transfer() { return *TransferUiOf(*m_app.frame); }

    int m_nReplyDelayMs = 0;
    ScriptedPrompt m_prompt;
    AppSession m_app;
    std::shared_ptr<sim::SimBus> m_bus;
    std::shared_ptr<sim::SimLine> m_line;
    std::optional<ScopedChannelFactory> m_factory;
};

TEST_F(FrameTransferTest, ReadAndWriteThroughTheMenuCommands) {
    CMainFrame& frame = *m_app.frame;
    ASSERT_NE(TransferUiOf(frame), nullptr);
    m_prompt.Station(1);
    frame.OnCommand(CmdId::Read);
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Read sucessful !"});
    EXPECT_TRUE(frame.StatusPaneText(Pane::Model).endsWith("R770-2P5-Kxx"));
    EXPECT_FALSE(Transfer().ProgressWindow()->isVisible());
    EXPECT_EQ(m_line->Sent().size(), 29u);

    m_prompt.Station(1);
    frame.OnCommand(CmdId::Write);
    EXPECT_EQ(m_prompt.Messages().last(), "Write successful!");

    // A station that doesn't answer: the reader tells it from the worker, through the prompt.
    m_prompt.Station(2).Answer(Answer::No);
    frame.OnCommand(CmdId::Read);
    EXPECT_EQ(m_prompt.Messages().last(), "TimeOut!");
}

TEST_F(FrameTransferTest, AutoRefreshRunsOnTheTimerRefusesNewAndCloseAndStopsAtDisconnect) {
    CMainFrame& frame = *m_app.frame;
    m_prompt.Station(1);
    frame.OnCommand(CmdId::AutoRefresh);
    EXPECT_TRUE(frame.Action(CmdId::AutoRefresh)->isChecked());
    EXPECT_TRUE(Transfer().RefreshTimer()->isActive());
    EXPECT_EQ(Transfer().RefreshTimer()->interval(), 100);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return Transfer().AutoRefresh().CyclesApplied() >= 2; }, 5000));

    // The project can't be replaced or closed under it; Read and Write stay available.
    frame.OnCommand(CmdId::New);
    frame.OnCommand(CmdId::Close);
    EXPECT_EQ(m_prompt.Messages(), QStringList(2, LoadText(TextId::AutoRefreshRunning)));
    EXPECT_NE(frame.Document(), nullptr);
    EXPECT_TRUE(frame.Action(CmdId::Read)->isEnabled());

    frame.LinkSession().Disconnect();
    EXPECT_EQ(frame.Session().m_bAutoRefresh, 0);
    EXPECT_FALSE(Transfer().RefreshTimer()->isActive());
    EXPECT_FALSE(Transfer().AutoRefresh().CycleRunning());
    frame.UpdateCommandUI();
    EXPECT_FALSE(frame.Action(CmdId::AutoRefresh)->isChecked());
}

// A drive that answers slowly: the link work runs off the interface thread, so a timer there
// keeps its beat, the progress window shows every group as it comes, and the program can't be
// closed meanwhile.
class SlowDriveTest : public FrameTransferTest {
protected:
    SlowDriveTest() { m_nReplyDelayMs = 60; }
};

TEST_F(SlowDriveTest, ReadKeepsTheWindowsAliveAndShowsItsProgress) {
    CProgressDlg& progress = *Transfer().ProgressWindow();
    std::set<int> positions;
    std::set<QString> labels;
    bool closed = false;
    bool dropTaken = false;
    m_prompt.Station(1);
    // A project dropped on the window meanwhile is not taken: the read is filling this one.
    QString error;
    const QString other = m_app.dir.File("other.qpj");
    ASSERT_TRUE(SaveProjectDocument(*m_app.frame->Document(), other, error));
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(other)});
    const auto drop = [&] {
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &dropped, Qt::LeftButton, {});
        QApplication::sendEvent(m_app.frame, &enter);
        QDropEvent event(QPointF(50, 50), Qt::CopyAction, &dropped, Qt::LeftButton, {});
        QApplication::sendEvent(m_app.frame, &event);
        return enter.isAccepted() || event.isAccepted();
    };
    // The window's first rendering (fonts, glyph caches) is no link work and, under a thread
    // checker, takes longer than the beat allows: it happens here, before the beat starts.
    progress.grab();
    UiBeat beat([&] {
        if (!progress.isVisible()) return;
        positions.insert(progress.Bar()->value());
        labels.insert(progress.Label()->text());
        closed = closed || m_app.frame->close();
        dropTaken = dropTaken || drop();
        if (positions.size() == 6 && labels.size() == 6)
            SaveScreenshot(progress, "progress-read.png");
    });
    m_app.frame->OnCommand(CmdId::Read);
    EXPECT_LT(beat.LongestGapMs(), 150);
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Read sucessful !"});
    EXPECT_GE(positions.size(), 8u);
    EXPECT_GE(labels.size(), 8u);
    EXPECT_FALSE(closed);
    EXPECT_FALSE(dropTaken);
    EXPECT_EQ(m_app.frame->StatusPaneText(0), "File name:New Project");
}

// Compare's drive read is the Read command's: its frames are link work too.
TEST_F(SlowDriveTest, CompareReadKeepsTheWindowsAlive) {
    CProgressDlg& progress = *Transfer().ProgressWindow();
    m_prompt.Station(1);
    OnNextModal<CCompareSelectDlg>([](CCompareSelectDlg& d) { d.accept(); });
    // Only the read is link work: the longest gap is taken while the progress window shows, after
    // its first rendering (as in the Read test); building the compare window afterwards is not.
    progress.grab();
    qint64 readGap = 0;
    UiBeat* beating = nullptr;
    UiBeat beat([&] {
        if (beating && progress.isVisible()) readGap = std::max(readGap, beating->LongestGapMs());
    });
    beating = &beat;
    m_app.frame->OnCommand(CmdId::Compare);
    EXPECT_GT(readGap, 0);
    EXPECT_LT(readGap, 150);
    EXPECT_TRUE(m_prompt.Messages().isEmpty());
    EXPECT_EQ(CompareUiOf(*m_app.frame)->Command().Mode(), kCompareSetRead);
    EXPECT_TRUE(CompareUiOf(*m_app.frame)->Window()->isVisible());
    EXPECT_FALSE(Transfer().ProgressWindow()->isVisible());
}

}  // namespace
}  // namespace quillon::test
