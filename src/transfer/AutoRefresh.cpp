#include "transfer/AutoRefresh.h"

#include "base/Prompt.h"
#include "base/SessionState.h"
#include "params/M330Doc.h"
#include "transfer/TransferCommands.h"
#include "transfer/TransferWindows.h"

#if defined(__linux__)
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace quillon {
namespace {

// The worker runs below normal priority, so that the interface keeps the upper hand.
void LowerThreadPriority() {
#if defined(__linux__)
    constexpr int kBelowNormalNice = 5;
    ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), kBelowNormalNice);
#endif
}

}  // namespace

CAutoRefresh::~CAutoRefresh() {
    if (m_worker.joinable()) m_worker.join();
}

bool CAutoRefresh::CycleRunning() const {
    return m_worker.joinable() && !m_bCycleDone.load(std::memory_order_acquire);
}

void CAutoRefresh::OnToggle() {
    m_session.m_bAutoRefresh = m_session.m_bAutoRefresh ? 0 : 1;
    if (!m_session.m_bAutoRefresh) {
        if (m_bWorkerObject) Stop();
        return;
    }
    const std::optional<int> station =
        Prompt().ChooseStation(QString::fromLatin1(kStationSelectCaption), m_session.m_stations);
    m_doc = m_windows.Document();
    if (!station || !m_doc) {
        m_session.m_bAutoRefresh = 0;
        return;
    }
    m_session.m_nRefreshStation = *station;
    Start();
}

void CAutoRefresh::Start() {
    // A worker left from before (a failed cycle, or one that ended after supervision turned
    // the toggle off) goes first.
    TakeOver();
    if (!m_session.m_bAutoRefresh) return;
    m_windows.SetRefreshTimer(true);
    StartWorker();
}

void CAutoRefresh::StartWorker() {
    CDriveSerial* link = m_windows.Link();
    m_bWorkerObject = true;
    m_cycle = Cycle{};
    if (!link) {
        Fail(QStringLiteral("Communication error!"));
        return;
    }
    m_bCycleDone.store(false, std::memory_order_release);
    m_worker = std::thread([this, link, station = m_session.m_nRefreshStation] {
        LowerThreadPriority();
        Cycle cycle;
        for (int g = 0; g < kRegisterGroupCount; ++g) {
            GroupReadout readout;
            if (!ReadGroupRegisters(*link, station, g, readout, cycle.error)) {
                cycle.ok = false;
                break;
            }
            cycle.groups.push_back(std::move(readout));
        }
        m_cycle = std::move(cycle);
        m_bCycleDone.store(true, std::memory_order_release);
    });
}

void CAutoRefresh::Tick() {
    if (!m_worker.joinable()) {
        // Nothing runs; a timer left running after the toggle went off stops here.
        if (!m_session.m_bAutoRefresh) m_windows.SetRefreshTimer(false);
        return;
    }
    // Turned off from outside (the supervision dropped the station): the cycle under way is
    // waited for now, so that nothing can take the link away under it.
    if (!m_bCycleDone.load(std::memory_order_acquire) && m_session.m_bAutoRefresh) return;
    TakeOver();
    if (m_session.m_bAutoRefresh)
        StartWorker();
    else
        m_windows.SetRefreshTimer(false);
}

void CAutoRefresh::TakeOver() {
    if (!m_worker.joinable()) return;
    m_worker.join();
    Cycle cycle = std::move(m_cycle);
    m_cycle = Cycle{};
    if (cycle.ok)
        Apply(cycle);
    else
        Fail(cycle.error);
}

void CAutoRefresh::Apply(Cycle& cycle) {
    CM330Doc* doc = m_windows.Document();
    if (!doc || doc != m_doc) {
        // The project the cycle was read for has gone: its values have nowhere to go.
        m_windows.SetRefreshTimer(false);
        m_session.m_bAutoRefresh = 0;
        return;
    }
    for (const GroupReadout& readout : cycle.groups) ApplyReadout(*doc, readout);
    CopyReadToSetValues(*doc, /*existingOnly=*/false);
    // The rebuild comes after the copy, in this order: it is what leaves the changed marks
    // clear for the next cycle.
    doc->ReloadCatalogue();
    m_windows.RefreshList();
    ++m_nCyclesApplied;
}

void CAutoRefresh::Fail(const QString& text) {
    m_windows.SetRefreshTimer(false);
    m_session.m_bAutoRefresh = 0;
    Prompt().Message(text);
}

void CAutoRefresh::Stop() {
    TakeOver();
    m_bWorkerObject = false;
    m_windows.SetRefreshTimer(false);
    m_session.m_bAutoRefresh = 0;
}

}  // namespace quillon
