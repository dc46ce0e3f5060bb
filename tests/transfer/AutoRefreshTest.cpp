// Auto refresh: the toggle, cycles on a worker thread taken over by the interface thread, the
// stop that waits for a cycle, the failure path, Disconnect. Run under ThreadSanitizer too.

#include "TransferFixture.h"

#include "link/LinkSession.h"
#include "transfer/AutoRefresh.h"

#include <chrono>
#include <thread>

namespace quillon::test {
namespace {

constexpr int kCycleFrames = 26;

class AutoRefreshTest : public TransferTest {
protected:
    // Each reply `delayMs` late, so that a cycle lasts long enough to be caught in the middle.
    void Open(int delayMs = 0) {
        sim::BusSetup setup = TestBusSetup();
        setup.faults.extraDelayMs = delayMs;
        OpenBus(setup);
        NewProject();
    }
    // Ticks as timer 2 would until `done` holds; false after five seconds.
    template <typename Pred>
    bool TickUntil(Pred done) {
        const auto t0 = std::chrono::steady_clock::now();
        while (!done()) {
            if (SecondsSince(t0) > 5.0) return false;
            if (m_windows.timerRunning) m_refresh.Tick();
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        return true;
    }
    bool WaitForFrames(std::size_t n) {
        const auto t0 = std::chrono::steady_clock::now();
        while (SentSince().size() < n)
            if (SecondsSince(t0) > 5.0) return false;
        return true;
    }
    CAutoRefresh m_refresh{m_session, m_windows};
};

TEST_F(AutoRefreshTest, CancelledStationLeavesItOff) {
    Open();
    m_prompt.Station(std::nullopt);
    m_refresh.OnToggle();
    EXPECT_EQ(m_session.m_bAutoRefresh, 0);
    EXPECT_FALSE(m_windows.timerRunning);
    EXPECT_FALSE(m_refresh.HasWorker());
    EXPECT_TRUE(Sent().empty());
}

TEST_F(AutoRefreshTest, CyclesFollowOneAnotherAndRebuildTheProject) {
    Open();
    m_prompt.Station(1);
    // A changed row: the rebuild after each cycle drops it and its mark.
    m_doc->SetSetValue(0, 14, QStringLiteral("123.4"), RowMark::Changed);
    const QString catalogueValue = [&] {
        CM330Doc fresh(m_session);
        fresh.OnNewDocument();
        return fresh.RowAt(0, 14).m_strSetValue;
    }();
    ASSERT_NE(catalogueValue, "123.4");

    ClearSent();
    m_refresh.OnToggle();
    EXPECT_EQ(m_session.m_bAutoRefresh, 1);
    EXPECT_EQ(m_session.m_nRefreshStation, 1);
    EXPECT_TRUE(m_windows.timerRunning);
    ASSERT_TRUE(TickUntil([&] { return m_refresh.CyclesApplied() >= 2; }));

    EXPECT_EQ(Row(0, 14).m_strSetValue, catalogueValue);
    EXPECT_FALSE(m_doc->RowChanged(0, 14));
    EXPECT_EQ(m_windows.listRefreshes, m_refresh.CyclesApplied());
    EXPECT_TRUE(m_prompt.Messages().isEmpty());

    m_refresh.OnToggle();  // off
    EXPECT_FALSE(m_refresh.CycleRunning());
    EXPECT_FALSE(m_windows.timerRunning);
    EXPECT_EQ(m_session.m_bAutoRefresh, 0);
    // Whole cycles only, each the 26 frames of the group read, one after the other.
    const std::size_t frames = SentSince().size();
    EXPECT_EQ(frames % kCycleFrames, 0u);
    EXPECT_EQ(static_cast<int>(frames / kCycleFrames), m_refresh.CyclesApplied());
}

TEST_F(AutoRefreshTest, TurningOffDuringACycleWaitsForItsEnd) {
    Open(5);
    m_prompt.Station(1);
    ClearSent();
    m_refresh.OnToggle();
    ASSERT_TRUE(WaitForFrames(3));
    EXPECT_TRUE(m_refresh.CycleRunning());

    m_refresh.OnToggle();  // blocks until the cycle is over
    EXPECT_FALSE(m_refresh.CycleRunning());
    EXPECT_EQ(SentSince().size(), std::size_t(kCycleFrames));
    EXPECT_EQ(m_refresh.CyclesApplied(), 1);
    EXPECT_FALSE(m_windows.timerRunning);
    EXPECT_FALSE(m_refresh.HasWorker());
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    EXPECT_EQ(SentSince().size(), std::size_t(kCycleFrames));
}

TEST_F(AutoRefreshTest, LostLineEndsItWithOneMessageAndTheToggleStartsOver) {
    Open(2);
    m_prompt.Station(1);
    ClearSent();
    m_refresh.OnToggle();
    ASSERT_TRUE(WaitForFrames(5));
    m_line->Cut();  // the simulator is gone
    ASSERT_TRUE(TickUntil([&] { return !m_windows.timerRunning; }));
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Communication error!"});
    EXPECT_EQ(m_session.m_bAutoRefresh, 0);
    EXPECT_EQ(m_refresh.CyclesApplied(), 0);
    EXPECT_TRUE(m_refresh.HasWorker());  // the worker object stays until the next start

    // The toggle then starts over with the station dialog.
    m_prompt.Station(std::nullopt);
    m_refresh.OnToggle();
    EXPECT_EQ(m_prompt.Texts().last(), "Station Select");
    EXPECT_EQ(m_session.m_bAutoRefresh, 0);
}

TEST_F(AutoRefreshTest, SupervisionTurningItOffLetsTheCycleEndAndStopsTheTimer) {
    Open(5);
    m_prompt.Station(1);
    ClearSent();
    m_refresh.OnToggle();
    ASSERT_TRUE(WaitForFrames(3));
    m_session.m_bAutoRefresh = 0;  // what the supervision does when it drops the station
    m_refresh.Tick();              // waits for the running cycle
    EXPECT_FALSE(m_refresh.CycleRunning());
    EXPECT_FALSE(m_windows.timerRunning);
    EXPECT_EQ(SentSince().size(), std::size_t(kCycleFrames));
}

class NoLinkWindows final : public ILinkWindows {
public:
    explicit NoLinkWindows(CAutoRefresh*& refresh) : m_refresh(refresh) {}
    void SetStatusPane(int, const QString&) override {}
    void StartLinkWatch(int) override {}
    void StopLinkWatch() override {}
    void StopAutoRefresh() override {
        ++stops;
        if (m_refresh) m_refresh->Stop();
    }
    int stops = 0;

private:
    CAutoRefresh*& m_refresh;
};

TEST_F(AutoRefreshTest, DisconnectStopsTheWorkerBeforeTheLinkCloses) {
    Open(5);
    CAutoRefresh* refresh = &m_refresh;
    NoLinkWindows linkWindows(refresh);
    CLinkSession session(m_session, linkWindows);
    ASSERT_EQ(session.EnsureLink().InitComm(QStringLiteral("COM1"), 19200, 8, 0, 2.0f), 1);
    m_windows.link = session.Link();
    m_prompt.Station(1);
    ClearSent();
    m_refresh.OnToggle();
    ASSERT_TRUE(WaitForFrames(3));

    session.Disconnect();
    m_windows.link = nullptr;
    EXPECT_EQ(linkWindows.stops, 1);
    // The cycle ran to its end on the open link: no failure, its values taken over.
    EXPECT_TRUE(m_prompt.Messages().isEmpty());
    EXPECT_EQ(m_refresh.CyclesApplied(), 1);
    EXPECT_EQ(SentSince().size(), std::size_t(kCycleFrames));
    EXPECT_EQ(session.Link(), nullptr);
}

}  // namespace
}  // namespace quillon::test
