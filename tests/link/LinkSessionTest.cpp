// The connect sequence, the supervision of linked stations, disconnect and the identification
// of a take-over, against the simulated bus.

#include "LinkSessionFixture.h"
#include "link/ModbusFrame.h"
#include "link/PortMap.h"
#include "link/Registers.h"

#include <QFile>

namespace quillon::test {
namespace {

const QString kLinked = QStringLiteral("Link successful!");

QByteArray FileContent(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(missing)");
}

TEST_F(LinkSessionTest, ConnectIdentifiesEveryNamedStation)
{
    OpenBus(Stations({1, 3, 5, 6, 7, 8, 9, 10, 11, 12}));
    ConnectRequest r = Request(QStringLiteral("1,3,5-12"));
    r.baudIndex = 2;
    r.dataBitsIndex = 1;
    r.parityIndex = 2;
    r.stopBitsIndex = 1;
    ASSERT_TRUE(m_link.Connect(r));

    EXPECT_EQ(m_prompt.Texts(), QStringList{kLinked});
    EXPECT_EQ(m_session.m_stations, (std::vector<int>{1, 3, 5, 6, 7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(m_session.m_stationCapacities, std::vector<int>(10, 1205));
    EXPECT_EQ(m_session.m_stationVersions, std::vector<int>(10, 1234));
    EXPECT_EQ(m_session.m_bOnline, 1);
    EXPECT_EQ(m_session.m_bTcpLinked, 0);
    EXPECT_EQ(m_session.m_nModelWord, 0x0100);
    EXPECT_EQ(Pane(Pane::Version), QStringLiteral("1.234"));
    EXPECT_EQ(Pane(Pane::Stations), QStringLiteral("1,3,5-12"));
    EXPECT_EQ(Pane(Pane::Model), QStringLiteral("R770-2P5-Kxx"));
    EXPECT_EQ(Pane(Pane::Link), QStringLiteral("Online"));
    EXPECT_EQ(m_windows.watchPeriodMs, 10000);
    ASSERT_NE(m_link.Link(), nullptr);
    EXPECT_TRUE(m_link.Link()->IsOpen());

    // Three frames per station (00-02, model word, identification), then the first station's
    // model word once more.
    const auto sent = m_line->Sent();
    ASSERT_EQ(sent.size(), 31u);
    EXPECT_EQ(FrameWord(sent[0].data(), 2), RegRunSource);
    EXPECT_EQ(FrameWord(sent[1].data(), 2), RegModelWord);
    EXPECT_EQ(FrameWord(sent[2].data(), 2), RegCapacityCode);
    EXPECT_EQ(sent[2][5], 2);
    EXPECT_EQ(sent[29][0], 12);
    EXPECT_EQ(sent[30][0], 1);
    EXPECT_EQ(FrameWord(sent[30].data(), 2), RegModelWord);

    // The session files of a good link.
    EXPECT_EQ(FileContent(m_dir.File("kcomfile.ini")), QByteArray("0\n2\n121\n1,3,5-12\n"));
    EXPECT_EQ(FileContent(m_dir.File("PZ4comfile.ini")), QByteArray("COM1\n"));
    EXPECT_EQ(g_nComPort, 0);
}

TEST_F(LinkSessionTest, StationMissingAtRunSourceEndsAtOnce)
{
    OpenBus(Stations({1, 3}));
    m_windows.panes[Pane::Link] = QStringLiteral("Unlink");
    const auto t0 = std::chrono::steady_clock::now();
    EXPECT_FALSE(m_link.Connect(Request(QStringLiteral("1,2,3"))));
    // One response time-out, no failure list, station 3 never asked.
    EXPECT_LT(SecondsSince(t0), 1.5);
    EXPECT_EQ(m_prompt.Texts(), QStringList{"Communication error!"});
    const auto sent = m_line->Sent();
    ASSERT_EQ(sent.size(), 4u);
    EXPECT_EQ(sent[3][0], 2);
    EXPECT_EQ(m_session.m_bOnline, 0);
    ASSERT_NE(m_link.Link(), nullptr);  // closed, kept
    EXPECT_FALSE(m_link.Link()->IsOpen());
    EXPECT_EQ(Pane(Pane::Link), QStringLiteral("Unlink"));
    EXPECT_EQ(m_windows.watchPeriodMs, 0);
    EXPECT_FALSE(QFile::exists(m_dir.File("kcomfile.ini")));
}

TEST_F(LinkSessionTest, StationMissingAtIdentificationIsNamedInTheFailureList)
{
    auto stations = Stations({1, 3, 4});
    stations[1].silentAfter = 2;  // station 3 answers 00-02 and the model word, then nothing
    OpenBus(stations);
    EXPECT_FALSE(m_link.Connect(Request(QStringLiteral("1,3,4"))));
    EXPECT_EQ(m_prompt.Texts(), QStringList{"The station num connect failure :3!"});
    EXPECT_EQ(m_link.Link(), nullptr);  // deleted
    EXPECT_EQ(m_session.m_bOnline, 0);
    EXPECT_EQ(m_session.m_stationCapacities, (std::vector<int>{1205, 1205}));
    EXPECT_EQ(Pane(Pane::Model), QStringLiteral("R770-2P5-Kxx"));
    EXPECT_TRUE(Pane(Pane::Link).isEmpty());
}

TEST_F(LinkSessionTest, IdentificationAnsweredWithAnExceptionPutsTheStationOnTheFailureList)
{
    OpenBus(Stations({1, 3}));
    *m_intercept = [](const Frame& f) -> std::optional<Frame> {
        if (f[0] == 3 && RequestRegister(f) == RegCapacityCode) return ExceptionReply(f, 'R');
        return std::nullopt;
    };
    EXPECT_FALSE(m_link.Connect(Request(QStringLiteral("1,3"))));
    EXPECT_EQ(m_prompt.Texts().value(m_prompt.Texts().size() - 1), "The station num connect failure :3!");
    EXPECT_EQ(m_session.m_stationCapacities, std::vector<int>{1205});
    EXPECT_EQ(m_link.Link(), nullptr);
    EXPECT_EQ(m_session.m_bOnline, 0);
}

TEST_F(LinkSessionTest, ModelOtherThanTheProjectsAsksFirst)
{
    OpenBus(Stations({1}));
    m_session.m_nModelCode = 201;
    const QString question = QStringLiteral("Inverter's type may be not match you select type.Continue ?");
    m_prompt.Answer(Answer::No);
    EXPECT_FALSE(m_link.Connect(Request(QStringLiteral("1"))));
    EXPECT_EQ(m_prompt.Texts(), QStringList{question});
    ASSERT_NE(m_link.Link(), nullptr);
    EXPECT_FALSE(m_link.Link()->IsOpen());
    EXPECT_EQ(m_session.m_bOnline, 0);

    m_prompt.Answer(Answer::Yes);
    EXPECT_TRUE(m_link.Connect(Request(QStringLiteral("1"))));
    EXPECT_EQ(m_prompt.Texts(), (QStringList{question, question, kLinked}));
    EXPECT_EQ(Pane(Pane::Model), QStringLiteral("R770-2P5-Kxx"));  // the drive's model
    EXPECT_EQ(m_session.m_nModelCode, 201);                          // the project's stays
}

TEST_F(LinkSessionTest, RefusedStationTextsSendNothing)
{
    OpenBus(Stations({1}));
    ConnectRequest r = Request(QString());
    r.baudIndex = 0;
    EXPECT_FALSE(m_link.Connect(r));
    r.stationText = QStringLiteral("33");
    EXPECT_FALSE(m_link.Connect(r));
    EXPECT_EQ(m_prompt.Texts(), (QStringList{"The station num is not empty!",
                                             "The station num can't be more than 32!"}));
    EXPECT_TRUE(m_line->Sent().empty());
    EXPECT_EQ(g_nBaudIndex, 2);  // the settings are taken only after the stations
    EXPECT_TRUE(g_strStationList.isEmpty());
}

TEST_F(LinkSessionTest, PortThatCanNotBeOpened)
{
    qputenv(kPortsEnvVar, QByteArray("COM7=/nonexistent/quillon-test-port"));
    ConnectRequest r = Request(QStringLiteral("1"), QStringLiteral("COM7"));
    r.baudIndex = 1;
    EXPECT_FALSE(m_link.Connect(r));
    qunsetenv(kPortsEnvVar);
    ASSERT_EQ(m_prompt.Texts().size(), 1);
    EXPECT_TRUE(m_prompt.Texts()[0].startsWith(QStringLiteral("Can't Open the Port!\n\n")))
        << m_prompt.Texts()[0].toStdString();
    EXPECT_EQ(m_link.Link(), nullptr);
    EXPECT_EQ(g_nComPort, 6);
    EXPECT_EQ(g_nBaudIndex, 1);

    // "TCPIP" with no module found: said, and the link can't open either.
    EXPECT_FALSE(m_link.Connect(Request(QStringLiteral("1"), QStringLiteral("TCPIP"))));
    ASSERT_EQ(m_prompt.Texts().size(), 3);
    EXPECT_EQ(m_prompt.Texts()[1], QStringLiteral("no NX20!"));
    EXPECT_TRUE(m_prompt.Texts()[2].startsWith(QStringLiteral("Can't Open the Port!")));
    EXPECT_EQ(g_nComPort, -1);
}

TEST_F(LinkSessionTest, SupervisionDropsSilentStationsOneMessageEachThenUnlinks)
{
    OpenBus(Stations({1, 2, 3}));
    ASSERT_TRUE(m_link.Connect(Request(QStringLiteral("1-3"))));
    m_session.m_nRefreshStation = 1;
    m_session.m_bAutoRefresh = 1;

    m_link.OnLinkWatchTick();  // all answer
    EXPECT_EQ(m_session.m_stations, (std::vector<int>{1, 2, 3}));

    m_bus->SetSilent(3, true);
    m_link.OnLinkWatchTick();
    EXPECT_EQ(m_session.m_stations, (std::vector<int>{1, 2}));
    EXPECT_EQ(Pane(Pane::Stations), QStringLiteral("1,2"));
    EXPECT_EQ(m_session.m_bAutoRefresh, 1);  // its station still answers
    EXPECT_EQ(m_session.m_bOnline, 1);

    m_bus->SetSilent(1, true);
    m_bus->SetSilent(2, true);
    m_link.OnLinkWatchTick();
    EXPECT_EQ(m_prompt.Texts(), (QStringList{kLinked, "The station num 3 communcation error!",
                                             "The station num 1 communcation error!",
                                             "The station num 2 communcation error!"}));
    EXPECT_TRUE(m_session.m_stations.empty());
    EXPECT_EQ(m_session.m_bAutoRefresh, 0);
    EXPECT_EQ(m_session.m_bOnline, 0);
    EXPECT_EQ(m_windows.watchPeriodMs, 0);
    EXPECT_TRUE(Pane(Pane::Version).isEmpty());
    EXPECT_TRUE(Pane(Pane::Stations).isEmpty());
    EXPECT_EQ(Pane(Pane::Link), QStringLiteral("Unlink"));
    EXPECT_FALSE(m_link.Link()->IsOpen());

    // Offline, a tick does nothing at all.
    const auto framesBefore = m_line->Sent().size();
    m_link.OnLinkWatchTick();
    EXPECT_EQ(m_line->Sent().size(), framesBefore);
    EXPECT_EQ(m_prompt.Texts().size(), 4);
}

// A station that answers the control-word read with an exception is there: it stays linked.
TEST_F(LinkSessionTest, SupervisionTakesAnExceptionReplyAsAnAnswer)
{
    OpenBus(Stations({1, 2}));
    ASSERT_TRUE(m_link.Connect(Request(QStringLiteral("1,2"))));
    *m_intercept = [](const Frame& f) -> std::optional<Frame> {
        if (f[0] == 2) return ExceptionReply(f, 'R');
        return std::nullopt;
    };
    m_link.OnLinkWatchTick();
    EXPECT_EQ(m_session.m_stations, (std::vector<int>{1, 2}));
    EXPECT_EQ(m_session.m_bOnline, 1);
    EXPECT_EQ(m_prompt.Texts(), QStringList{kLinked});
}

TEST_F(LinkSessionTest, SupervisionReadsTheControlWordOfEachStation)
{
    OpenBus(Stations({4, 9}));
    ASSERT_TRUE(m_link.Connect(Request(QStringLiteral("9,4"))));
    const auto before = m_line->Sent().size();
    m_link.OnLinkWatchTick();
    const auto sent = m_line->Sent();
    ASSERT_EQ(sent.size(), before + 2);
    for (std::size_t i = 0; i < 2; ++i) {
        const auto& frame = sent[before + i];
        EXPECT_EQ(frame[0], i == 0 ? 9 : 4);
        EXPECT_EQ(frame[1], ModbusFn::ReadHolding);
        EXPECT_EQ(FrameWord(frame.data(), 2), RegControlWord);
        EXPECT_EQ(FrameWord(frame.data(), 4), 1);
    }
    EXPECT_EQ(m_session.m_stations, (std::vector<int>{9, 4}));
}

TEST_F(LinkSessionTest, DisconnectEndsTheLink)
{
    OpenBus(Stations({1}));
    ASSERT_TRUE(m_link.Connect(Request(QStringLiteral("1"))));
    // Auto refresh is stopped even with its flag down: supervision may have cleared the flag
    // while a refresh cycle still runs on its thread.
    m_session.m_bAutoRefresh = 0;
    const int stopsBefore = m_windows.autoRefreshStops;
    m_link.Disconnect();
    EXPECT_EQ(m_windows.autoRefreshStops, stopsBefore + 1);
    EXPECT_EQ(m_link.Link(), nullptr);
    EXPECT_EQ(m_session.m_bOnline, 0);
    EXPECT_EQ(m_session.m_bTcpLinked, 0);
    EXPECT_EQ(m_windows.watchPeriodMs, 0);
    EXPECT_TRUE(Pane(Pane::Version).isEmpty());
    EXPECT_TRUE(Pane(Pane::Stations).isEmpty());
    EXPECT_EQ(Pane(Pane::Link), QStringLiteral("Unlink"));
}

TEST_F(LinkSessionTest, OpenLinkIdentifiesAndWidensTheOtherSeries)
{
    const struct {
        std::uint16_t modelWord;
        int code;
        const char* name;
    } cases[] = {
        {0x0100, 1205, "R770-2P5-Kxx"},
        {0x0110, 1205 + 0x1100000, ""},
        {0x0111, 1205 + 0x1110000, ""},
    };
    for (const auto& c : cases) {
        OpenBus(Stations({1}), c.modelWord);
        SessionState session;
        CLinkSession link(session, m_windows);
        ASSERT_EQ(link.EnsureLink().InitComm(QStringLiteral("COM1"), 19200, 8, 0, 2.0f), 1);
        int version = 0;
        ASSERT_TRUE(link.OpenLink(1, version)) << c.modelWord;
        EXPECT_EQ(version, 1234);
        EXPECT_EQ(session.m_stationVersions, std::vector<int>{1234});
        EXPECT_EQ(session.m_nModelCode, c.code);
        EXPECT_EQ(session.m_strModelName, QString::fromLatin1(c.name));
        EXPECT_EQ(session.m_nModelWord, c.modelWord);
    }
    EXPECT_TRUE(m_prompt.Texts().isEmpty());

    // A drive that doesn't answer: the general word, nothing stored.
    SessionState session;
    CLinkSession link(session, m_windows);
    ASSERT_EQ(link.EnsureLink().InitComm(QStringLiteral("COM1"), 19200, 8, 0, 2.0f), 1);
    int version = -1;
    EXPECT_FALSE(link.OpenLink(5, version));
    EXPECT_EQ(version, -1);
    EXPECT_EQ(session.m_nModelCode, kDefaultModelCode);
    EXPECT_EQ(m_prompt.Texts(), QStringList{"Communication error!"});
}

TEST(LinkPortNames, PrefixAndSessionNumber)
{
    EXPECT_EQ(LinkPortName(QStringLiteral("COM12"), false), QStringLiteral("\\\\.\\COM12"));
    EXPECT_EQ(LinkPortName(QStringLiteral("COM9"), false), QStringLiteral("COM9"));
    EXPECT_EQ(LinkPortName(QStringLiteral(" COM3 "), false), QStringLiteral("COM3"));
    EXPECT_EQ(LinkPortName(QStringLiteral("TCPIP"), true), QStringLiteral("TCPIP"));
    EXPECT_EQ(SessionPortNumber(QStringLiteral("\\\\.\\COM12")), 11);
    EXPECT_EQ(SessionPortNumber(QStringLiteral("COM1")), 0);
    EXPECT_EQ(SessionPortNumber(QStringLiteral("TCPIP")), -1);
    EXPECT_EQ(SessionPortNumber(QString()), 0);
}

}  // namespace
}  // namespace quillon::test
