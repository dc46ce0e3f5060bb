#include "link/LinkSession.h"

#include "base/CommSettings.h"
#include "base/Globals.h"
#include "base/Prompt.h"
#include "base/StatusPanes.h"
#include "base/TextConv.h"
#include "base/TextTable.h"
#include "link/ModbusFrame.h"
#include "link/LinkWork.h"
#include "link/ModuleList.h"
#include "link/RegisterReaders.h"
#include "link/Registers.h"
#include "link/StationList.h"
#include "params/ModelTable.h"

#include <algorithm>
#include <array>
#include <optional>

namespace quillon {
namespace {

constexpr int kComPrefixLimit = 4;  // longer port names get the device namespace prefix
const QString kComPrefix = QStringLiteral("\\\\.\\");

// The model words whose drives belong to series the model table doesn't hold: their codes are
// widened so that they find no row.
constexpr int kSeries110Word = 0x110;
constexpr int kSeries111Word = 0x111;
constexpr int kSeries110Offset = 0x1100000;
constexpr int kSeries111Offset = 0x1110000;

struct LineChoice {
    unsigned long baud;
    unsigned char dataBits;
    unsigned char parity;  // 0 none, 1 odd, 2 even
    float stopBits;
};

// The dialog's indices as the link takes them; indices out of range count as the defaults.
LineChoice LineFromIndices(const ConnectRequest& r)
{
    const int baud = r.baudIndex >= 0 && r.baudIndex < static_cast<int>(std::size(kBaudRates))
                         ? kBaudRates[r.baudIndex]
                         : kBaudRates[2];
    static constexpr unsigned char kParityByIndex[] = {2, 1, 0};  // even, odd, none
    const unsigned char parity =
        r.parityIndex >= 0 && r.parityIndex <= 2 ? kParityByIndex[r.parityIndex] : 0;
    return LineChoice{static_cast<unsigned long>(baud),
                      static_cast<unsigned char>(r.dataBitsIndex == 0 ? 7 : 8), parity,
                      r.stopBitsIndex == 0 ? 1.0f : 2.0f};
}

// The TCP path connects to the module's data port: the reply's sender port is the search's.
PeerAddress ModulePeer(const DeviceRecord& device)
{
    PeerAddress peer = device.socketAddress;
    peer.m_nPort = 0;
    return peer;
}

QString ConnectFailureText(const std::vector<int>& failed)
{
    return QStringLiteral("The station num connect failure :") + JoinStations(failed) + u'!';
}

}  // namespace

QString LinkPortName(const QString& portText, bool tcp)
{
    if (tcp)
        return QString::fromLatin1(kTcpPortText);
    const QString name = portText.trimmed();
    return name.size() > kComPrefixLimit ? kComPrefix + name : name;
}

int SessionPortNumber(const QString& portName)
{
    const qsizetype com = portName.indexOf(QLatin1String("COM"));
    if (com >= 0)
        return Atoi(QStringView(portName).mid(com + 3)) - 1;
    if (portName == QLatin1String(kTcpPortText))
        return -1;
    return 0;
}

CLinkSession::CLinkSession(SessionState& session, ILinkWindows& windows)
    : m_session(session), m_windows(windows)
{
}

CLinkSession::~CLinkSession()
{
    DeleteLink();
}

CDriveSerial& CLinkSession::EnsureLink()
{
    if (!m_pLink)
        m_pLink = std::make_unique<CDriveSerial>();
    return *m_pLink;
}

void CLinkSession::CloseLink()
{
    // An auto-refresh cycle may be using the link on its worker thread even when supervision has
    // already cleared the flag: stopping waits for that cycle, so the link is never closed or
    // deleted under it.
    m_windows.StopAutoRefresh();
    if (m_pLink)
        m_pLink->Close();
}

void CLinkSession::DeleteLink()
{
    CloseLink();
    m_pLink.reset();
}

void CLinkSession::ReportOpenFailure()
{
    QString text = LoadText(TextId::CantOpenPort);
    if (m_pLink && !m_pLink->OpenFailureDetail().isEmpty())
        text += QStringLiteral("\n\n") + m_pLink->OpenFailureDetail();
    Prompt().Message(text, MessageKind::Error);
}

bool CLinkSession::Connect(const ConnectRequest& request)
{
    CDriveSerial& link = EnsureLink();
    m_session.m_stations.clear();
    m_session.m_stationCapacities.clear();
    m_session.m_stationVersions.clear();

    if (request.stationText.isEmpty()) {
        Prompt().Message(QStringLiteral("The station num is not empty!"));
        return false;
    }
    if (!ParseStationList(request.stationText, m_session.m_stations))
        return false;

    g_nBaudIndex = request.baudIndex;
    g_nDataBitsIndex = request.dataBitsIndex;
    g_nParityIndex = request.parityIndex;
    g_nStopBitsIndex = request.stopBitsIndex;
    g_strStationList = request.stationText;
    const LineChoice line = LineFromIndices(request);

    const bool tcp = request.portText.trimmed() == QLatin1String(kTcpPortText);
    const QString port = LinkPortName(request.portText, tcp);
    if (tcp) {
        const DeviceRecord* device = request.modules ? request.modules->Chosen() : nullptr;
        if (!device) {
            Prompt().Message(QStringLiteral("no NX20!"));
        } else {
            link.peerAddress = ModulePeer(*device);
            link.GetStrMac(device->mac);
        }
    }
    g_nComPort = SessionPortNumber(port);

    bool opened = false;
    m_windows.LinkWork([&] {
        opened = link.InitComm(port, line.baud, line.dataBits, line.parity, line.stopBits,
                               kQueueSize, kQueueSize);
    });
    if (!opened) {
        ReportOpenFailure();
        DeleteLink();
        return false;
    }

    std::vector<int> failed;
    if (!IdentifyStations(failed) || !AcceptStations(failed))
        return false;

    m_session.m_bOnline = 1;
    m_session.m_bTcpLinked = tcp ? 1 : 0;
    if (request.onLinked)
        request.onLinked();
    m_windows.StartLinkWatch(kLinkWatchPeriodMs);
    Prompt().Message(QStringLiteral("Link successful!"), MessageKind::Information);
    PortSession portSession;
    portSession.portText = request.portText.trimmed();
    WritePortSession(request.modules ? request.modules->ForSaving(portSession.portText) : portSession);
    SaveCommSettings();

    m_session.m_strStationText = request.stationText;
    m_windows.SetStatusPane(Pane::Version, VersionText(m_session.m_stationVersions.front()));
    m_windows.SetStatusPane(Pane::Stations, m_session.m_strStationText);
    m_windows.SetStatusPane(Pane::Link, QString::fromLatin1(kOnlineText));
    return true;
}

bool CLinkSession::IdentifyStations(std::vector<int>& failed)
{
    // What each station answered; the session takes it over afterwards, on this thread.
    struct Answers {
        int station = 0;
        std::optional<int> runSource;
        std::optional<int> modelWord;
        std::optional<Identification> id;
    };
    CDriveSerial& link = *m_pLink;
    const std::vector<int> stations = m_session.m_stations;
    std::vector<Answers> answers;
    m_windows.LinkWork([&] {
        for (int station : stations) {
            Answers& a = answers.emplace_back();
            a.station = station;
            int value = 0;
            // A station that doesn't answer here ends the sequence at once; its message is shown.
            if (!ReadRunSource(link, station, value))
                return;
            a.runSource = value;
            if (!ReadModelWord(link, station, value))
                return;
            a.modelWord = value;
            Identification id;
            if (ReadIdentification(link, station, ReplyCaller::Identification, id).ok)
                a.id = id;
        }
    });
    for (const Answers& a : answers) {
        if (a.runSource)
            m_session.m_nReg0002 = *a.runSource;
        if (!a.modelWord) {
            CloseLink();
            return false;
        }
        m_session.m_nModelWord = *a.modelWord;
        if (a.id) {
            m_session.m_stationCapacities.push_back(a.id->capacity);
            m_session.m_stationVersions.push_back(a.id->version);
        } else {
            failed.push_back(a.station);
        }
    }
    return true;
}

bool CLinkSession::AcceptStations(const std::vector<int>& failed)
{
    int modelWord = 0;
    bool answered = false;
    CDriveSerial& link = *m_pLink;
    const int first = m_session.m_stations.front();
    m_windows.LinkWork([&] { answered = ReadModelWord(link, first, modelWord) != 0; });
    if (!answered) {
        CloseLink();
        return false;
    }
    // With every station in the failure list there is no model to compare.
    if (!m_session.m_stationCapacities.empty()) {
        const int capacity = m_session.m_stationCapacities.front();
        if (capacity != m_session.m_nModelCode &&
            Prompt().YesNo(QStringLiteral(
                "Inverter's type may be not match you select type.Continue ?")) != Answer::Yes) {
            CloseLink();
            return false;
        }
        QString capacityText;
        m_windows.SetStatusPane(Pane::Model, ModelNameFromCode(capacity, capacityText));
        m_session.m_nModelWord = modelWord;
    }
    if (!failed.empty()) {
        Prompt().Message(ConnectFailureText(failed));
        DeleteLink();
        return false;
    }
    return true;
}

void CLinkSession::ShowUnlinked()
{
    m_windows.SetStatusPane(Pane::Version, QString());
    m_windows.SetStatusPane(Pane::Stations, QString());
    m_windows.SetStatusPane(Pane::Link, LoadText(TextId::Unlink));
}

void CLinkSession::Disconnect()
{
    DeleteLink();
    m_session.m_bOnline = 0;
    m_session.m_bTcpLinked = 0;
    m_windows.StopLinkWatch();
    ShowUnlinked();
}

void CLinkSession::OnLinkWatchTick()
{
    // Link work under way (a Read, a Write, a connect) has the link and the session.
    if (!m_session.m_bOnline || LinkWorkRunning())
        return;
    std::vector<int>& stations = m_session.m_stations;
    for (std::size_t i = 0; i < stations.size();) {
        const int station = stations[i];
        std::array<unsigned char, kRequestLength> tx{};
        BuildReadFrame(tx, station, RegControlWord, 1);
        std::array<unsigned char, ReadReplyLength(1)> rx{};
        // An exception reply is an answer: the station is alive.
        ErrType result = ErrComm;
        if (CDriveSerial* link = m_pLink.get())
            m_windows.LinkWork(
                [&] { result = link->CommandSend(tx.data(), tx.size(), rx.data(), rx.size()); });
        if (result == ErrNone) {
            ++i;
            continue;
        }
        stations.erase(stations.begin() + static_cast<std::ptrdiff_t>(i));
        if (station == m_session.m_nRefreshStation)
            m_session.m_bAutoRefresh = 0;
        Prompt().Message(FormatText(TextId::StationCommError, station));
    }
    if (!stations.empty()) {
        m_session.m_strStationText = JoinStations(stations);
        m_windows.SetStatusPane(Pane::Stations, m_session.m_strStationText);
        return;
    }
    CloseLink();
    m_session.m_bOnline = 0;
    m_windows.StopLinkWatch();
    ShowUnlinked();
}

bool CLinkSession::OpenLink(int station, int& firstVersion)
{
    if (!m_pLink)
        return false;
    CDriveSerial& link = *m_pLink;
    std::uint16_t value = 0;
    ReplyVerdict v = ReadHoldingRegisters(link, station, RegRunSource, 1,
                                          ReplyCaller::RunSourceAtConnect, SendForm::Paced, &value);
    if (!v.ok) {
        ShowVerdict(v);
        return false;
    }
    m_session.m_nReg0002 = value;
    v = ReadHoldingRegisters(link, station, RegModelWord, 1, ReplyCaller::Identification,
                             SendForm::Paced, &value);
    if (!v.ok) {
        ShowVerdict(v);
        return false;
    }
    m_session.m_nModelWord = value;
    Identification id;
    v = ReadIdentification(link, station, ReplyCaller::TakeOverIdentification, id);
    if (!v.ok) {
        ShowVerdict(v);
        return false;
    }
    int code = id.capacity;
    if (m_session.m_nModelWord == kSeries110Word)
        code += kSeries110Offset;
    else if (m_session.m_nModelWord == kSeries111Word)
        code += kSeries111Offset;
    m_session.m_nModelCode = code;
    QString capacityText;
    m_session.m_strModelName = ModelNameFromCode(code, capacityText);
    m_session.m_stationVersions.push_back(id.version);
    firstVersion = id.version;
    return true;
}

}  // namespace quillon
