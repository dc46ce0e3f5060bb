#include "monitor/StatusMonitor.h"

#include "base/Prompt.h"
#include "link/Registers.h"

namespace quillon {
namespace {

constexpr std::uint16_t PageRegister(MonitorPageKind kind)
{
    return kind == MonitorPageKind::Status ? RegStatusWord : RegTerminalWord;
}
constexpr int PageCount(MonitorPageKind kind)
{
    return kind == MonitorPageKind::Status ? kStatusPollCount : 1;
}

}  // namespace

CMonitorPage::CMonitorPage(MonitorPageKind kind, CStatusMonitor& owner)
    : m_kind(kind), m_owner(owner), m_words(PageCount(kind), 0)
{
}

void CMonitorPage::SetStation(int index, int station)
{
    m_nStationIndex = index;
    m_nStation = station;
}

void CMonitorPage::Start()
{
    m_bRunning = 1;
    m_bStopped = 0;
    m_bPolling = true;
}

void CMonitorPage::Stop()
{
    m_bRunning = 0;
    m_bStopped = 1;
    m_bPolling = false;
}

void CMonitorPage::Tick()
{
    if (!m_bPolling || m_bInFlight)
        return;
    m_bInFlight = true;
    auto exchange = std::make_shared<LinkExchange>(
        ReadExchange(m_nStation, PageRegister(m_kind), PageCount(m_kind)));
    m_owner.m_runner.Run([exchange](CDriveSerial* link) { exchange->Run(link); },
                         [this, exchange] { Complete(*exchange); });
}

void CMonitorPage::Complete(const LinkExchange& exchange)
{
    m_bInFlight = false;
    m_nLastResult = exchange.result;
    if (exchange.Ok()) {
        for (int i = 0; i < PageCount(m_kind); ++i)
            m_words[i] = exchange.Word(i);
        ++m_nPolls;
    } else if (exchange.result >= ErrCrc && exchange.result <= ErrComm) {
        m_owner.HaltAll();  // silently: the last values stand
    } else if (exchange.result == ErrNone && m_bPolling) {
        m_bPolling = false;
        if (m_owner.onChanged)
            m_owner.onChanged(*this);
        Prompt().Message(exchange.Judge(ReplyCaller::Polling).text);
        return;
    }
    if (m_owner.onChanged)
        m_owner.onChanged(*this);
}

CStatusMonitor::CStatusMonitor(IExchangeRunner& runner, std::vector<int> stations,
                               int stationIndex)
    : m_runner(runner),
      m_stations(std::move(stations)),
      m_nStationIndex(stationIndex),
      m_status(MonitorPageKind::Status, *this),
      m_terminal(MonitorPageKind::Terminal, *this)
{
    const int station = StationAt(m_stations, stationIndex);
    m_status.SetStation(stationIndex, station);
    m_terminal.SetStation(stationIndex, station);
}

void CStatusMonitor::SelectStation(CMonitorPage& page, int index)
{
    page.SetStation(index, StationAt(m_stations, index));
    m_nStationIndex = index;
}

void CStatusMonitor::Start()
{
    for (CMonitorPage* page : {&m_status, &m_terminal}) {
        page->Start();
        if (onChanged)
            onChanged(*page);
    }
}

void CStatusMonitor::Stop()
{
    for (CMonitorPage* page : {&m_status, &m_terminal}) {
        page->Stop();
        if (onChanged)
            onChanged(*page);
    }
}

void CStatusMonitor::HaltAll()
{
    m_status.m_bPolling = false;
    m_terminal.m_bPolling = false;
}

}  // namespace quillon
