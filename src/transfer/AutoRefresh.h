#pragma once
// Auto refresh: all parameter groups of one station read over and over, so that the list
// follows the drive. Unlike the commands' link work (LinkWork.h), its cycles run on while the
// person goes on working.
//
// A 100 ms timer on the interface thread calls Tick. While the toggle is on, Tick starts a
// worker thread for one cycle whenever the last one has ended, so only one cycle runs at a time.
// A worker does the fifteen group reads into a buffer of its own and touches nothing else but
// the link, whose transactions are serialised by its mutex. The interface thread takes the
// finished cycle over and applies its steps to the project in their order: read values, read
// values to set values, the project rebuilt from the catalogue (which leaves the changed marks
// clear for the next cycle), then the changed marks cleared and the list redrawn.
//
// A failed cycle ends auto refresh with one message. Turning the toggle off, Disconnect and
// closing the main window stop it and wait for a running cycle to end first: the interface
// thread stands still until then, at most one cycle, itself bounded by the link's time-out per
// frame.

#include "transfer/GroupRead.h"

#include <QString>
#include <atomic>
#include <thread>
#include <vector>

namespace quillon {

struct SessionState;
class CM330Doc;
class ITransferWindows;

inline constexpr int kAutoRefreshPeriodMs = 100;

class CAutoRefresh {
public:
    CAutoRefresh(SessionState& session, ITransferWindows& windows)
        : m_session(session), m_windows(windows) {}
    // Waits for a running cycle; its result is dropped.
    ~CAutoRefresh();
    CAutoRefresh(const CAutoRefresh&) = delete;
    CAutoRefresh& operator=(const CAutoRefresh&) = delete;

    // The command "AutoRefresh". Turning on asks for the station ("Station Select"); Cancel
    // leaves it off. Turning off stops as Stop does; with no worker started since the last
    // stop the toggle changes the flag and nothing more.
    void OnToggle();
    // Timer 2: takes a finished cycle over and starts the next one.
    void Tick();
    // Waits for the running cycle and takes it over, kills the timer, clears the toggle.
    void Stop();

    // A worker has been started and not yet taken away by Stop.
    bool HasWorker() const { return m_bWorkerObject; }
    // A cycle is under way on the worker thread.
    bool CycleRunning() const;
    // Cycles taken over successfully since construction.
    int CyclesApplied() const { return m_nCyclesApplied; }

private:
    struct Cycle {
        bool ok = true;
        QString error;
        std::vector<GroupReadout> groups;
    };

    void Start();
    void StartWorker();
    // Joins the worker thread if it runs and takes its cycle over.
    void TakeOver();
    void Apply(Cycle& cycle);
    void Fail(const QString& text);

    SessionState& m_session;
    ITransferWindows& m_windows;
    CM330Doc* m_doc = nullptr;  // the project the toggle was turned on for; compared, not used
    bool m_bWorkerObject = false;
    std::thread m_worker;
    std::atomic<bool> m_bCycleDone{true};
    Cycle m_cycle;  // written by the worker, read after the join
    int m_nCyclesApplied = 0;
};

}  // namespace quillon
