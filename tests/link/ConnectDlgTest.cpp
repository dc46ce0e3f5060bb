// The connection dialog as a person meets it: its captions and defaults, the link to the
// simulated drive on a pinned pseudo-terminal and what the main window shows of it, the
// supervision ending in "Unlink", and, in a network namespace of the test's own, the search
// for modules, their addresses and a link through one.

#include "LinkTestSupport.h"
#include "SimModule.h"
#include "base/Globals.h"
#include "link/AssignIpDlg.h"
#include "link/ConnectDlg.h"
#include "link/DeviceSearch.h"
#include "link/PortMap.h"
#include "link/RegisterReaders.h"
#include "link/Registers.h"
#include "link/SetIpDlg.h"
#include "shell/CommandIds.h"
#include "support/AppSession.h"
#include "support/NetNamespace.h"
#include "support/ScriptedPrompt.h"
#include "support/UiBeat.h"
#include "support/WidgetTestSupport.h"
#include "ui/IpAddressEdit.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace quillon::test {
namespace {

const MacBytes kMacA{0x00, 0x20, 0x4a, 0x00, 0x00, 0x0a};

// The demo drive: station 1, model 1205, 19200 baud, 8 data bits, no parity, 2 stop bits.
sim::BusSetup DemoBus()
{
    sim::BusSetup setup = TestBusSetup();
    setup.line.parity = Parity::None;
    setup.line.dataBits = 8;
    return setup;
}

QByteArray Pin(const QString& com, const QString& path)
{
    return (com + u'=' + path).toLocal8Bit();
}

void Click(QAbstractButton* button)
{
    ASSERT_TRUE(button->isEnabled()) << button->text().toStdString();
    QTest::mouseClick(button, Qt::LeftButton);
}

TEST(ConnectDlg, DefaultLineAndPortList)
{
    ScriptedPrompt prompt;
    ScopedEnv ports(kPortsEnvVar, "COM1=/nonexistent/quillon-a,COM12=/nonexistent/quillon-b");
    AppSession s;
    CConnectDlg dlg(s.frame->LinkSession(), s.frame);
    // A fresh session: 19200 baud, 8 data bits, no parity, 2 stop bits, COM1, no station.
    EXPECT_TRUE(dlg.BaudButton(2)->isChecked());
    EXPECT_TRUE(dlg.DataBitsButton(1)->isChecked());
    EXPECT_TRUE(dlg.ParityButton(2)->isChecked());
    EXPECT_TRUE(dlg.StopBitsButton(1)->isChecked());
    EXPECT_TRUE(dlg.StationEdit()->text().isEmpty());
    EXPECT_EQ(dlg.PortText(), QStringLiteral("COM1"));

    // COM names in ascending order with their devices beside them, "TCPIP" last.
    QComboBox* list = dlg.PortList();
    ASSERT_GE(list->count(), 3);
    EXPECT_EQ(list->itemData(0).toString(), QStringLiteral("COM1"));
    EXPECT_TRUE(list->itemText(0).contains(QStringLiteral("/nonexistent/quillon-a")));
    EXPECT_EQ(list->itemText(list->count() - 1), QStringLiteral("TCPIP"));
    for (int i = 1; i + 1 < list->count(); ++i)
        EXPECT_LT(ComNumberFromName(list->itemData(i - 1).toString()),
                  ComNumberFromName(list->itemData(i).toString()));

    // Not linked, serial: only connect, the port list and the other-module button.
    EXPECT_TRUE(dlg.ConnectButton()->isEnabled());
    EXPECT_FALSE(dlg.DisconnectButton()->isEnabled());
    EXPECT_TRUE(list->isEnabled());
    EXPECT_FALSE(dlg.ModuleList()->isEnabled());
    EXPECT_FALSE(dlg.IpButton()->isEnabled());
    EXPECT_TRUE(dlg.OtherModuleButton()->isEnabled());

    // The session's port is selected.
    g_nComPort = 11;
    g_nBaudIndex = 0;
    g_strStationList = QStringLiteral("3,4");
    CConnectDlg again(s.frame->LinkSession(), s.frame);
    EXPECT_EQ(again.PortText(), QStringLiteral("COM12"));
    EXPECT_TRUE(again.BaudButton(0)->isChecked());
    EXPECT_EQ(again.StationEdit()->text(), QStringLiteral("3,4"));

    // A port that appears while the dialog is open joins the list; the chosen one stays chosen.
    const QString added = QStringLiteral("COM5   /nonexistent/quillon-c");
    EXPECT_EQ(again.PortList()->findText(added), -1);
    qputenv(kPortsEnvVar, "COM1=/nonexistent/quillon-a,COM5=/nonexistent/quillon-c,"
                          "COM12=/nonexistent/quillon-b");
    again.RescanPorts();
    EXPECT_GE(again.PortList()->findText(added), 0);
    EXPECT_EQ(again.PortText(), QStringLiteral("COM12"));
    EXPECT_TRUE(prompt.Texts().isEmpty());
}

TEST(ConnectDlg, NewUserLinksToTheDriveOnCom1AndSupervisionEndsInUnlink)
{
    PtyBus bus(DemoBus());
    ScopedEnv ports(kPortsEnvVar, Pin(QStringLiteral("COM1"), bus.Path()));
    ScriptedPrompt prompt;
    AppSession s;
    s.NewProject(QStringLiteral("R770-2P5-Kxx"));
    int version = 0;
    bus.Bus().WithStation(1, [&](sim::SimDrive& d) { version = d.Stored(RegSoftwareVersion); });

    OnNextModal<CConnectDlg>([](CConnectDlg& dlg) {
        EXPECT_EQ(dlg.PortText(), QStringLiteral("COM1"));
        QTest::keyClicks(dlg.StationEdit(), QStringLiteral("1"));
        SaveScreenshot(dlg, QStringLiteral("connect-dialog.png"));
        Click(dlg.ConnectButton());
        EXPECT_FALSE(dlg.ConnectButton()->isEnabled());
        EXPECT_TRUE(dlg.DisconnectButton()->isEnabled());
        EXPECT_FALSE(dlg.PortList()->isEnabled());
        EXPECT_FALSE(dlg.OtherModuleButton()->isEnabled());
        SaveScreenshot(dlg, QStringLiteral("connect-dialog-linked.png"));
        Click(dlg.CloseButton());
    });
    s.frame->OnCommand(CmdId::Connect);

    EXPECT_EQ(prompt.Texts(), QStringList{"Link successful!"});
    EXPECT_EQ(s.frame->StatusPaneText(1), QStringLiteral("Version:") + VersionText(version));
    EXPECT_EQ(s.frame->StatusPaneText(2), QStringLiteral("Station Num:1"));
    EXPECT_EQ(s.frame->StatusPaneText(3), QStringLiteral("Model:R770-2P5-Kxx"));
    EXPECT_EQ(s.frame->StatusPaneText(4), QStringLiteral("Online"));
    EXPECT_TRUE(s.frame->LinkWatchTimer()->isActive());
    EXPECT_EQ(s.frame->LinkWatchTimer()->interval(), 10000);
    EXPECT_TRUE(s.frame->Action(CmdId::Read)->isEnabled());
    EXPECT_EQ(s.frame->LinkSession().Link()->LinkDescription(), bus.Path());
    QFile settings(s.dir.File("kcomfile.ini"));
    ASSERT_TRUE(settings.open(QIODevice::ReadOnly));
    EXPECT_EQ(settings.readAll(), QByteArray("0\n2\n121\n1\n"));
    s.frame->resize(1000, 700);
    SaveScreenshot(*s.frame, QStringLiteral("main-window-online.png"));

    // Opened again while linked, it shows the link; "断开" ends it.
    OnNextModal<CConnectDlg>([](CConnectDlg& dlg) {
        EXPECT_EQ(dlg.StationEdit()->text(), QStringLiteral("1"));
        EXPECT_FALSE(dlg.ConnectButton()->isEnabled());
        Click(dlg.DisconnectButton());
        EXPECT_TRUE(dlg.ConnectButton()->isEnabled());
        EXPECT_TRUE(dlg.PortList()->isEnabled());
        EXPECT_TRUE(dlg.OtherModuleButton()->isEnabled());
        Click(dlg.CloseButton());
    });
    s.frame->OnCommand(CmdId::Connect);
    EXPECT_EQ(s.frame->StatusPaneText(1), QStringLiteral("Version:"));
    EXPECT_EQ(s.frame->StatusPaneText(2), QStringLiteral("Station Num:"));
    EXPECT_EQ(s.frame->StatusPaneText(4), QStringLiteral("Unlink"));
    EXPECT_FALSE(s.frame->LinkWatchTimer()->isActive());
    EXPECT_EQ(s.frame->LinkSession().Link(), nullptr);
    EXPECT_FALSE(s.frame->Action(CmdId::Read)->isEnabled());

    // Linked again; the drive goes silent; timer 1 drops it and the link ends.
    OnNextModal<CConnectDlg>([](CConnectDlg& dlg) {
        Click(dlg.ConnectButton());
        Click(dlg.CloseButton());
    });
    s.frame->OnCommand(CmdId::Connect);
    ASSERT_EQ(s.frame->Session().m_bOnline, 1);
    bus.Bus().SetSilent(1, true);
    s.frame->LinkWatchTimer()->start(20);  // no need to wait ten seconds here
    EXPECT_TRUE(QTest::qWaitFor([&] { return s.frame->Session().m_bOnline == 0; }, 3000));
    EXPECT_EQ(prompt.Texts(), (QStringList{"Link successful!", "Link successful!",
                                           "The station num 1 communcation error!"}));
    EXPECT_EQ(s.frame->StatusPaneText(4), QStringLiteral("Unlink"));
    EXPECT_FALSE(s.frame->LinkWatchTimer()->isActive());
}

TEST(ConnectDlg, PortThatCanNotBeOpenedIsSaid)
{
    ScopedEnv ports(kPortsEnvVar, "COM2=/nonexistent/quillon-com2");
    ScriptedPrompt prompt;
    AppSession s;
    s.NewProject(QStringLiteral("R770-2P5-Kxx"));
    CConnectDlg dlg(s.frame->LinkSession(), s.frame);
    dlg.PortList()->setCurrentIndex(dlg.PortList()->findData(QStringLiteral("COM2")));
    dlg.StationEdit()->setText(QStringLiteral("1"));
    Click(dlg.ConnectButton());
    ASSERT_EQ(prompt.Texts().size(), 1);
    EXPECT_TRUE(prompt.Texts()[0].startsWith(QStringLiteral("Can't Open the Port!\n\n")))
        << prompt.Texts()[0].toStdString();
    EXPECT_TRUE(dlg.ConnectButton()->isEnabled());
    EXPECT_EQ(s.frame->Session().m_bOnline, 0);
    EXPECT_EQ(g_nComPort, 1);
}

TEST(ConnectDlg, TcpipSearchesSetsAnAddressAndLinksThroughTheModule)
{
    QUILLON_IN_OWN_NETWORK_NAMESPACE();
    ScopedSearchAddress search(kLoopbackBroadcast);
    SimModule module(QStringLiteral("127.0.0.2"), kMacA);
    ScopedEnv ports(kPortsEnvVar, "COM1=/nonexistent/quillon-com1");
    ScriptedPrompt prompt;
    AppSession s;
    s.NewProject(QStringLiteral("R770-2P5-Kxx"));

    OnNextModal<CConnectDlg>([&](CConnectDlg& dlg) {
        EXPECT_FALSE(dlg.TcpMode());
        UiBeat beat;  // the windows keep painting through the two-second search
        dlg.PortList()->setCurrentIndex(dlg.PortList()->count() - 1);  // "TCPIP": a search
        EXPECT_LT(beat.LongestGapMs(), 150);
        EXPECT_TRUE(dlg.TcpMode());
        ASSERT_EQ(dlg.ModuleList()->count(), 1);
        EXPECT_EQ(dlg.ModuleList()->itemText(0), QStringLiteral("00-20-4a-00-00-0a"));
        EXPECT_EQ(dlg.IpButton()->text(), QStringLiteral("127.0.0.2()"));
        EXPECT_EQ(dlg.IpButton()->toolTip(), QStringLiteral("127.0.0.2()"));
        EXPECT_TRUE(dlg.ModuleList()->isEnabled());
        EXPECT_FALSE(dlg.OtherModuleButton()->isEnabled());

        OnNextModal<CSetIpDlg>([](CSetIpDlg& ip) {
            EXPECT_EQ(ip.Address(), QStringLiteral("127.0.0.2"));
            EXPECT_EQ(ip.NameEdit()->maxLength(), 26);
            ip.AddressEdit()->SetAddress(QStringLiteral("127.0.0.9"));
            ip.NameEdit()->setText(QStringLiteral("Pump"));
            ip.accept();
        });
        Click(dlg.IpButton());
        EXPECT_EQ(dlg.IpButton()->text(), QStringLiteral("127.0.0.9(Pump)"));

        dlg.StationEdit()->setText(QStringLiteral("1"));
        Click(dlg.ConnectButton());
        EXPECT_EQ(dlg.IpButton()->text(), QStringLiteral("127.0.0.9"));  // the link's address
        EXPECT_FALSE(dlg.IpButton()->isEnabled());
        EXPECT_FALSE(dlg.ModuleList()->isEnabled());
        Click(dlg.CloseButton());
    });
    s.frame->OnCommand(CmdId::Connect);

    EXPECT_EQ(module.module.Address(), QStringLiteral("127.0.0.9"));
    EXPECT_EQ(prompt.Texts(), QStringList{"Link successful!"});
    EXPECT_EQ(s.frame->Session().m_bTcpLinked, 1);
    EXPECT_EQ(s.frame->StatusPaneText(4), QStringLiteral("Online"));
    EXPECT_EQ(s.frame->LinkSession().Link()->LinkDescription(), QStringLiteral("127.0.0.9:10001"));
    QFile file(s.dir.File("PZ4comfile.ini"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("TCPIP\n00-20-4a-00-00-0a\n1\n00-20-4a-00-00-0a\nPump\n"));
}

TEST(ConnectDlg, AddressForAModuleTheSearchDidNotFind)
{
    QUILLON_IN_OWN_NETWORK_NAMESPACE();
    ScopedSearchAddress search(kLoopbackBroadcast);
    SimModule module(QStringLiteral("127.0.0.2"), kMacA);
    ScopedEnv ports(kPortsEnvVar, "COM1=/nonexistent/quillon-com1");
    ScriptedPrompt prompt;
    AppSession s;
    CConnectDlg dlg(s.frame->LinkSession(), s.frame);
    dlg.SetModuleRestartWait(0);

    OnNextModal<CAssignIpDlg>([](CAssignIpDlg& assign) {
        EXPECT_EQ(assign.MacEdit()->maxLength(), 17);
        assign.MacEdit()->setText(QStringLiteral("00-20-4A-00-00-0A"));
        assign.AddressEdit()->SetAddress(QStringLiteral("127.0.0.7"));
        assign.accept();
    });
    Click(dlg.OtherModuleButton());
    EXPECT_EQ(module.module.Address(), QStringLiteral("127.0.0.7"));
    ASSERT_EQ(dlg.Modules().Devices().size(), 1u);
    EXPECT_EQ(dlg.Modules().Devices()[0].ip, QStringLiteral("127.0.0.7"));
    EXPECT_TRUE(prompt.Texts().isEmpty());
    EXPECT_FALSE(s.frame->LinkSession().Link()->IsOpen());

    // No module with that MAC answers; Cancel does nothing.
    OnNextModal<CAssignIpDlg>([](CAssignIpDlg& assign) {
        assign.MacEdit()->setText(QStringLiteral("00-20-4a-00-00-99"));
        assign.AddressEdit()->SetAddress(QStringLiteral("127.0.0.8"));
        assign.accept();
    });
    Click(dlg.OtherModuleButton());
    OnNextModal<CAssignIpDlg>([](CAssignIpDlg& assign) { assign.reject(); });
    Click(dlg.OtherModuleButton());
    EXPECT_EQ(prompt.Texts(), QStringList{"set IP address failed!"});
    EXPECT_EQ(module.module.Address(), QStringLiteral("127.0.0.7"));
}

}  // namespace
}  // namespace quillon::test
