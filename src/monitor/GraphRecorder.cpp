#include "monitor/GraphRecorder.h"

#include "base/Prompt.h"
#include "link/Registers.h"
#include "monitor/ParamSetFields.h"

#include <chrono>
#include <cmath>
#include <memory>

namespace quillon {

GraphClock SystemGraphClock()
{
    return {[] {
                using namespace std::chrono;
                return duration<double>(steady_clock::now().time_since_epoch()).count();
            },
            [] { return QTime::currentTime(); }};
}

long long MsOfDay(const QTime& time) { return time.msecsSinceStartOfDay(); }

struct CGraphRecorder::Job {
    LinkExchange exchange;
    int generation = 0;
    double tick = 0.0;
    QTime local;
};

CGraphRecorder::CGraphRecorder(IExchangeRunner& runner, GraphClock clock)
    : m_runner(runner), m_clock(std::move(clock))
{
    NoteStart();
    ApplySettings(m_settings);
}

void CGraphRecorder::NoteStart()
{
    m_startTick = m_clock.tickSeconds();
    m_nStartMsOfDay = MsOfDay(m_clock.localTime());
}

void CGraphRecorder::ApplySettings(const GraphSettings& settings)
{
    m_settings = settings;
    for (int c = 0; c < kGraphChannels; ++c) {
        const double minimum = settings.minimum[c].toDouble();
        const double maximum = settings.maximum[c].toDouble();
        m_scale[c] = 1000.0 / (maximum - minimum);
        m_scaleMin[c] = minimum;
        const double step = (maximum - minimum) * 0.25;
        m_axisLabels[c] = {settings.minimum[c], QString::number(minimum + step, 'f', 2),
                           QString::number(minimum + 2 * step, 'f', 2),
                           QString::number(minimum + 3 * step, 'f', 2), settings.maximum[c]};
    }
    ++m_nVersion;
}

void CGraphRecorder::Start()
{
    m_store.Clear();
    m_lastValues = {};
    m_bFull = false;
    NoteStart();
    m_bFirstSample = true;
    m_state = RecorderState::Running;
    ++m_nGeneration;
    ++m_nVersion;
    if (onStateChanged)
        onStateChanged();
    if (onSample)
        onSample();
}

void CGraphRecorder::Stop()
{
    if (m_state != RecorderState::Running)
        return;
    m_state = RecorderState::Stopped;
    m_bFirstSample = false;
    if (onStateChanged)
        onStateChanged();
}

void CGraphRecorder::Fail(const QString& text)
{
    Stop();
    Prompt().Message(text);
}

void CGraphRecorder::Tick()
{
    if (m_bHold || m_state != RecorderState::Running || m_bInFlight)
        return;
    m_bInFlight = true;
    auto job = std::make_shared<Job>();
    job->exchange = ReadExchange(m_settings.station, RegMonitorBlock, kGraphReadCount);
    job->generation = m_nGeneration;
    m_runner.Run(
        [job, clock = m_clock](CDriveSerial* link) {
            job->exchange.Run(link);
            // The sample's own time: when its answer came.
            job->tick = clock.tickSeconds();
            job->local = clock.localTime();
        },
        [this, job] { Complete(*job); });
}

void CGraphRecorder::Complete(const Job& job)
{
    m_bInFlight = false;
    if (job.generation != m_nGeneration || m_state != RecorderState::Running)
        return;
    const ReplyVerdict verdict = job.exchange.Judge(ReplyCaller::Polling);
    if (!verdict.ok) {
        // A transport fault and a reply of another function stop the sampling with one message;
        // any other result only loses this tick.
        const int result = job.exchange.result;
        if (verdict.exception)
            Fail(ErrTypeText(ErrComm));
        else if (result >= ErrCrc && result <= ErrComm)
            Fail(ErrTypeText(result));
        return;
    }
    MonitorWords words{};
    for (int i = 0; i < kGraphReadCount; ++i)
        words[i] = job.exchange.Word(i);

    GraphSampleRow row;
    row.tick = job.tick;
    const QTime& t = job.local;
    row.dayTime = t.second() + 60.0 * t.minute() + 3600.0 * t.hour() + 0.001 * t.msec();
    row.timeText = ClockText(MsOfDay(t));
    for (int c = 0; c < kGraphChannels; ++c) {
        const ChannelReading r = ReadChannel(m_settings.channelName[c], words);
        row.valueTexts[c] = r.text;
        if (r.known) {
            // On the register's own numbers, the running values brought back to them.
            if (r.raw > static_cast<int>(m_runningMax[c] * r.unitDivisor))
                m_runningMax[c] = r.value;
            if (m_bFirstSample || r.raw < static_cast<int>(m_runningMin[c] * r.unitDivisor))
                m_runningMin[c] = r.value;
        }
        row.samples[c] = (r.value - m_scaleMin[c]) * m_scale[c];
        m_lastValues[c] = r.value;
    }
    m_bFirstSample = false;
    AppendSample(row);
}

void CGraphRecorder::AppendSample(const GraphSampleRow& row)
{
    if (m_store.Append(row, WindowSeconds()))
        m_bFull = true;
    ++m_nVersion;
    if (onSample)
        onSample();
}

void CGraphRecorder::LoadRows(const GraphSettings& curves, const std::vector<GraphSampleRow>& rows)
{
    Stop();
    m_store.Clear();
    m_bFull = false;
    ApplySettings(curves);
    for (const GraphSampleRow& row : rows) {
        m_store.dayTimes.push_back(row.dayTime);
        m_store.timeTexts.push_back(row.timeText);
        for (int c = 0; c < kGraphChannels; ++c)
            m_store.AppendCurve(c, row.valueTexts[c],
                                (LimitValue(row.valueTexts[c]) - m_scaleMin[c]) * m_scale[c],
                                row.dayTime);
    }
    if (!rows.empty()) {
        m_startTick = rows.front().dayTime;
        m_nStartMsOfDay = std::llround(rows.front().dayTime * 1000.0);
    }
    if (m_state == RecorderState::Idle)
        m_state = RecorderState::Stopped;
    ++m_nVersion;
    if (onSample)
        onSample();
}

void CGraphRecorder::ArrowUp()
{
    m_nDivisionMs += kDivisionStepMs;
    ++m_nVersion;
}

void CGraphRecorder::ArrowDown()
{
    m_nDivisionMs -= kDivisionStepMs;
    if (m_nDivisionMs < kDivisionStepMs + 1)
        m_nDivisionMs = kDivisionStepMs;
    ++m_nVersion;
}

std::array<QString, kAxisLabels> CGraphRecorder::TimeAxis(long long nowMsOfDay) const
{
    std::array<QString, kAxisLabels> labels;
    const bool scrolling = IsRunning() && m_bFull;
    for (int k = 0; k < kAxisLabels; ++k) {
        const long long ms = scrolling
                                 ? nowMsOfDay - static_cast<long long>(kGraphDivisions - k) * m_nDivisionMs
                                 : m_nStartMsOfDay + static_cast<long long>(k) * m_nDivisionMs;
        labels[k] = ClockText(ms);
    }
    return labels;
}

DimTimeFields DimTimeOf(int divisionMs)
{
    const int windowSeconds = kGraphDivisions * divisionMs / 1000;
    return {windowSeconds / 60, windowSeconds % 60};
}

std::optional<int> DivisionMsOf(const DimTimeFields& fields)
{
    const long long seconds = fields.seconds + 60LL * fields.minutes;
    if (seconds <= 0 || seconds > 24 * 3600)
        return std::nullopt;
    return static_cast<int>(seconds * 1000 / kGraphDivisions);
}

}  // namespace quillon
