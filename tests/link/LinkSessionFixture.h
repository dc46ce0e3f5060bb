#pragma once
// A CLinkSession on a private program directory, with the main window's part played by a
// recorder, and a simulated bus behind every port name whose replies a test may replace.

#include "InterceptChannel.h"
#include "LinkTestSupport.h"
#include "base/Globals.h"
#include "base/StatusPanes.h"
#include "link/ChannelFactory.h"
#include "link/LinkSession.h"
#include "sim/SimChannel.h"
#include "support/ScriptedPrompt.h"
#include "support/TestDirs.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>

namespace quillon::test {

// What the link shows in the main window: the panes and the supervision timer.
class RecordingLinkWindows : public ILinkWindows {
public:
    void SetStatusPane(int pane, const QString& text) override
    {
        if (pane >= 0 && pane < kStatusPanes)
            panes[pane] = text;
    }
    void StartLinkWatch(int periodMs) override { watchPeriodMs = periodMs; }
    void StopLinkWatch() override { watchPeriodMs = 0; }
    void StopAutoRefresh() override { ++autoRefreshStops; }

    std::array<QString, kStatusPanes> panes;
    int watchPeriodMs = 0;  // 0: timer 1 stopped
    int autoRefreshStops = 0;
};

class LinkSessionTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetGlobals();
        g_strAppDir = m_dir.Path();
    }
    void TearDown() override { ResetGlobals(); }

    // A bus with these stations (model 1205, version 1.234) behind every port name.
    void OpenBus(std::vector<sim::StationSetup> stations, std::uint16_t modelWord = sim::kDefaultModelWord)
    {
        sim::BusSetup setup = TestBusSetup();
        setup.stations = std::move(stations);
        setup.version = 1234;
        setup.modelWord = modelWord;
        m_bus = std::make_shared<sim::SimBus>(setup);
        m_line = std::make_shared<sim::SimLine>();
        m_factory.emplace(Intercepting(sim::SimChannelFactory(m_bus, m_line), m_intercept));
    }

    static std::vector<sim::StationSetup> Stations(std::initializer_list<int> addresses)
    {
        std::vector<sim::StationSetup> out;
        for (int a : addresses)
            out.push_back(sim::StationSetup{a, 1205, 0});
        return out;
    }

    static ConnectRequest Request(const QString& stations, const QString& port = QStringLiteral("COM1"))
    {
        ConnectRequest r;
        r.portText = port;
        r.stationText = stations;
        return r;
    }

    QString Pane(int pane) const { return m_windows.panes[pane]; }

    ScriptedPrompt m_prompt;
    PrivateTempDir m_tmp;
    TempAppDir m_dir;
    SessionState m_session;
    RecordingLinkWindows m_windows;
    CLinkSession m_link{m_session, m_windows};
    std::shared_ptr<sim::SimBus> m_bus;
    std::shared_ptr<sim::SimLine> m_line;
    std::shared_ptr<Interceptor> m_intercept = std::make_shared<Interceptor>();
    std::optional<ScopedChannelFactory> m_factory;
};

}  // namespace quillon::test
