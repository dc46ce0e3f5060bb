#pragma once
// The logic of the "Monitor Status" window: its two pages, each polling its own station with its
// own 400 ms timer between "Start" and "Stop". The widget owns the timers and calls Tick; after
// every change it asks each page IsPolling() to start or stop that page's timer, and repaints.
//
// Failures are told apart on purpose: a transport failure (CRC, time-out, a lost line) stops
// both pages without a word and leaves the last values and lamps standing; a reply with another
// function byte stops only the page that got it and says "Communication error!"; any other
// result is ignored and the next tick tries again.

#include "monitor/LinkExchange.h"
#include "monitor/StatusReadout.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace quillon {

inline constexpr int kStatusPollPeriodMs = 400;

enum class MonitorPageKind { Status, Terminal };

class CStatusMonitor;

class CMonitorPage {
public:
    CMonitorPage(MonitorPageKind kind, CStatusMonitor& owner);

    MonitorPageKind Kind() const { return m_kind; }
    // The page's own station: its index in the station list and its number.
    int StationIndex() const { return m_nStationIndex; }
    int Station() const { return m_nStation; }
    void SetStation(int index, int station);

    // One poll: the page's frame to its station. Nothing while the page isn't polling or while
    // its last poll is still under way.
    void Tick();
    bool IsPolling() const { return m_bPolling; }
    // Lamps are drawn once "Start" or "Stop" has been pressed, never before.
    bool LampsShown() const { return m_bRunning || m_bStopped; }
    int Polls() const { return m_nPolls; }
    // The transaction result of the last poll (ErrNone also for a wrong function byte).
    int LastResult() const { return m_nLastResult; }

    // Status page: the eight registers from RegStatusWord. Terminal page: the terminal word.
    std::uint16_t Word(int index) const { return m_words[index]; }
    std::uint16_t StatusWord() const { return m_words[StatusWordIndex::Status]; }
    std::uint16_t FaultCode() const { return m_words[StatusWordIndex::Fault]; }
    std::uint16_t TerminalWord() const { return m_words[0]; }

private:
    friend class CStatusMonitor;
    void Start();
    void Stop();
    void Complete(const LinkExchange& exchange);

    MonitorPageKind m_kind;
    CStatusMonitor& m_owner;
    int m_nStationIndex = 0;
    int m_nStation = 0;
    std::vector<std::uint16_t> m_words;
    int m_bRunning = 0;
    int m_bStopped = 0;
    bool m_bPolling = false;
    bool m_bInFlight = false;
    int m_nPolls = 0;  // good polls since construction
    int m_nLastResult = ErrNone;
};

class CStatusMonitor {
public:
    // `stations` is the session's list; both pages start from `stationIndex`.
    CStatusMonitor(IExchangeRunner& runner, std::vector<int> stations, int stationIndex);

    CMonitorPage& StatusPage() { return m_status; }
    CMonitorPage& TerminalPage() { return m_terminal; }
    const std::vector<int>& Stations() const { return m_stations; }
    // The window's station index: where a page that changed its station writes it back.
    int StationIndex() const { return m_nStationIndex; }
    // A page chose another entry of the station list.
    void SelectStation(CMonitorPage& page, int index);

    void Start();
    void Stop();

    // Called after every poll's completion and every Start or Stop, for `page`; a failure may
    // have stopped the other page too.
    std::function<void(CMonitorPage& page)> onChanged;

private:
    friend class CMonitorPage;
    void HaltAll();  // both timers, no flags changed

    IExchangeRunner& m_runner;
    std::vector<int> m_stations;
    int m_nStationIndex;
    CMonitorPage m_status;
    CMonitorPage m_terminal;
};

}  // namespace quillon
