#pragma once
// The logic of the graph watch: the recorder behind the "Graph" window and its scope. It samples
// one station each 100 ms tick with one read of the monitor block, keeps the running extremes of
// each curve and the sliding window of samples, and holds the scale, the time per division and
// the times the axis is labelled with. The window owns the timers and calls Tick(); the scope
// paints from here.
//
// Each sample carries the tick time taken right after its own exchange, so a slow link gives
// uneven spacing on a true time axis. The exchange itself goes through the runner: on the
// desktop a worker, so a dead line never freezes the window. One exchange is under way at most;
// a tick that finds one still running passes.

#include "base/GraphSettings.h"
#include "monitor/GraphChannels.h"
#include "monitor/GraphStore.h"
#include "monitor/LinkExchange.h"

#include <QTime>

#include <array>
#include <functional>
#include <optional>
#include <vector>

namespace quillon {

inline constexpr int kGraphTickMs = 100;
inline constexpr int kScopeRepaintMs = 10;
inline constexpr int kDefaultDivisionMs = 15000;
inline constexpr int kDivisionStepMs = 1000;
inline constexpr int kGraphDivisions = 4;
inline constexpr int kAxisLabels = 5;

// Where the recorder takes its times: a millisecond counter in seconds, and the local time.
struct GraphClock {
    std::function<double()> tickSeconds;
    std::function<QTime()> localTime;
};
GraphClock SystemGraphClock();

enum class RecorderState { Idle, Running, Stopped };

class CGraphRecorder {
public:
    explicit CGraphRecorder(IExchangeRunner& runner, GraphClock clock = SystemGraphClock());

    // The curves, scale and station; the scale and axis labels follow. Samples already stored
    // keep the plot units they were stored with.
    void ApplySettings(const GraphSettings& settings);
    const GraphSettings& Settings() const { return m_settings; }

    // Start clears the store and samples from the next tick on; Stop (also key Pause) ends the
    // sampling and leaves the store standing.
    void Start();
    void Stop();
    void Tick();
    RecorderState State() const { return m_state; }
    bool IsRunning() const { return m_state == RecorderState::Running; }
    // Set while the time dialog is open: ticks do nothing.
    void SetHold(bool hold) { m_bHold = hold; }

    int DivisionMs() const { return m_nDivisionMs; }
    void SetDivisionMs(int ms) { m_nDivisionMs = ms; }
    void ArrowUp();    // one second more per division
    void ArrowDown();  // one second less, not below one second
    double WindowSeconds() const { return m_nDivisionMs * kGraphDivisions * 0.001; }

    double Scale(int c) const { return m_scale[c]; }
    double ScaleMin(int c) const { return m_scaleMin[c]; }
    const QString& AxisLabel(int c, int k) const { return m_axisLabels[c][k]; }
    double RunningMax(int c) const { return m_runningMax[c]; }
    double RunningMin(int c) const { return m_runningMin[c]; }
    double LastValue(int c) const { return m_lastValues[c]; }
    // A stored sample in its channel's unit, as the cursor reads it.
    double ChannelValue(int c, double sample) const { return sample / m_scale[c] + m_scaleMin[c]; }

    const CGraphStore& Store() const { return m_store; }
    // Appends a sample formed elsewhere (a loaded file, a benchmark) as a tick appends its own:
    // the window is trimmed and the scope told.
    void AppendSample(const GraphSampleRow& row);
    // A loaded file in place of live data: its curves and limits (the session's settings stay as
    // they are), then its rows, each row's time of day serving as its tick time and the first as
    // the time of Start. The samples come from the value texts on the file's own scale. Shown
    // like a stopped run; nothing is trimmed, so a file longer than the window runs past the
    // right edge. The next Start clears it.
    void LoadRows(const GraphSettings& curves, const std::vector<GraphSampleRow>& rows);
    // The window has run full since Start: the oldest samples are being dropped.
    bool WindowFull() const { return m_bFull; }
    // The five labels of the time axis; `nowMsOfDay` is the local time as milliseconds of the day.
    std::array<QString, kAxisLabels> TimeAxis(long long nowMsOfDay) const;
    // Grows with every change worth a repaint of the plot.
    unsigned Version() const { return m_nVersion; }

    // A sample arrived (value boxes, curves, strip); sampling started or stopped (timers).
    std::function<void()> onSample;
    std::function<void()> onStateChanged;

private:
    struct Job;
    void Complete(const Job& job);
    void Fail(const QString& text);
    void NoteStart();

    IExchangeRunner& m_runner;
    GraphClock m_clock;
    GraphSettings m_settings;
    CGraphStore m_store;
    RecorderState m_state = RecorderState::Idle;
    int m_nDivisionMs = kDefaultDivisionMs;
    std::array<double, kGraphChannels> m_scale{};
    std::array<double, kGraphChannels> m_scaleMin{};
    std::array<std::array<QString, kAxisLabels>, kGraphChannels> m_axisLabels;
    std::array<double, kGraphChannels> m_runningMax{};
    std::array<double, kGraphChannels> m_runningMin{};
    std::array<double, kGraphChannels> m_lastValues{};
    bool m_bFirstSample = false;
    bool m_bHold = false;
    bool m_bFull = false;
    bool m_bInFlight = false;
    int m_nGeneration = 0;  // a completion of an earlier run is dropped
    unsigned m_nVersion = 0;
    double m_startTick = 0.0;
    long long m_nStartMsOfDay = 0;
};

// The "Set Time" dialog's fields for a time per division: the whole window in whole minutes
// and seconds.
struct DimTimeFields {
    int minutes = 0;
    int seconds = 0;
};
DimTimeFields DimTimeOf(int divisionMs);
// The time per division of the dialog's fields, a quarter of the window by integer division;
// nullopt for a window of no time (or more than a day).
std::optional<int> DivisionMsOf(const DimTimeFields& fields);

long long MsOfDay(const QTime& time);

}  // namespace quillon
