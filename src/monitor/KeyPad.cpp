#include "monitor/KeyPad.h"

#include "base/Prompt.h"
#include "link/Registers.h"
#include "monitor/FrequencyEdit.h"
#include "monitor/KeyPadItems.h"

#include <QRect>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <optional>
#include <utility>

namespace quillon {
namespace {

const QString kRunSourceError = QStringLiteral("Run command source selection error!");
const QString kFreqSourceError = QStringLiteral("Frequency command source selection error!");

constexpr std::uint16_t kRunFromLink = 2;   // 00-02: run command by communication
constexpr std::uint16_t kFreqFromLink = 5;  // 00-05: frequency by communication

// The keys of the picture; the knob is an ellipse in its rectangle.
struct HotArea {
    KeyPadKey key;
    QRect area;
};
constexpr HotArea kHotAreas[] = {
    {KeyPadKey::Knob, QRect(QPoint(206, 168), QPoint(255, 213))},
    {KeyPadKey::Run, QRect(QPoint(43, 253), QPoint(110, 295))},
    {KeyPadKey::Stop, QRect(QPoint(112, 253), QPoint(179, 295))},
    {KeyPadKey::Up, QRect(QPoint(43, 137), QPoint(110, 179))},
    {KeyPadKey::Down, QRect(QPoint(43, 195), QPoint(110, 237))},
};

bool InEllipse(const QRect& r, QPoint p)
{
    const double rx = r.width() / 2.0, ry = r.height() / 2.0;
    const double dx = (p.x() - (r.left() + rx)) / rx, dy = (p.y() - (r.top() + ry)) / ry;
    return dx * dx + dy * dy <= 1.0;
}

enum class TickStep { Release, Status, Sources, Limits, Block };

// RUN and STOP: the read of the control word and the write that may follow.
struct RunSwitch {
    LinkExchange read;
    std::optional<LinkExchange> write;
};

}  // namespace

struct CKeyPad::TickJob {
    std::vector<std::pair<TickStep, LinkExchange>> steps;
};

KeyPadKey KeyPadKeyAt(QPoint at)
{
    for (const HotArea& h : kHotAreas) {
        if (h.key == KeyPadKey::Knob ? InEllipse(h.area, at) : h.area.contains(at))
            return h.key;
    }
    return KeyPadKey::None;
}

std::uint16_t KeyPadLowerLimit(std::uint16_t reg000D)
{
    return static_cast<std::uint16_t>((reg000D >> 8) * 257);
}

bool TypedFrequencyInRange(std::uint16_t lowerLimit, std::uint16_t upperLimit)
{
    const QString working;  // never filled
    const double tested = std::atof(working.toLatin1().constData());
    return lowerLimit * 0.01 - 0.000001 < tested && tested < upperLimit * 0.01 + 0.000001;
}

CKeyPad::CKeyPad(IExchangeRunner& runner, std::vector<int> stations, int stationIndex)
    : m_runner(runner), m_stations(std::move(stations))
{
    SelectStation(stationIndex);
}

void CKeyPad::SelectStation(int index)
{
    m_nStationIndex = index;
    m_nStation = StationAt(m_stations, index);
}

void CKeyPad::Changed()
{
    if (onChanged)
        onChanged();
}

void CKeyPad::Say(const QString& text)
{
    m_edit.inMessage = true;
    Prompt().Message(text);
    m_edit.inMessage = false;
}

void CKeyPad::Tick(bool leftButtonDown)
{
    if (!m_bPolling)
        return;
    if (m_bTicking) {
        m_bTickDue = true;
        return;
    }
    auto job = std::make_shared<TickJob>();
    if (!leftButtonDown && m_bDragging) {
        // The knob was let go: its frequency goes to the drive first.
        m_bDragging = false;
        Changed();
        const std::uint16_t value = FrequencyCommandValue(m_edit.text, kKeyPadFrequencyNudge);
        if (!m_bFreqFromLink) {
            Say(kFreqSourceError);
            return;
        }
        job->steps.emplace_back(TickStep::Release, WriteExchange(m_nStation, RegFrequencyCommand, value));
        job->steps.back().second.paced = false;
    }
    job->steps.emplace_back(TickStep::Status, ReadExchange(m_nStation, RegStatusWord, 1));
    job->steps.back().second.paced = false;
    job->steps.emplace_back(TickStep::Sources, ReadExchange(m_nStation, RegRunSource, 5));
    job->steps.emplace_back(TickStep::Limits, ReadExchange(m_nStation, RegUpperLimit, 2));
    job->steps.emplace_back(TickStep::Block, ReadExchange(m_nStation, RegMonitorBlock, Monitor::Count));

    m_bTicking = true;
    m_runner.Run(
        [job](CDriveSerial* link) {
            for (auto& [step, exchange] : job->steps) {
                exchange.Run(link);
                if (!exchange.Ok())
                    return;
            }
        },
        [this, job] {
            m_bTicking = false;
            TickDone(*job);
            if (std::exchange(m_bTickDue, false) && m_bPolling && onTickDue)
                onTickDue();
        });
}

void CKeyPad::TickDone(const TickJob& job)
{
    for (const auto& [step, e] : job.steps) {
        if (!e.Ok()) {
            // Transport faults and a drive's refusal stop the ticks; an unknown result only
            // ends this one.
            const QString failure = e.Judge(ReplyCaller::ControlPanel).text;
            if (!failure.isEmpty())
                m_bPolling = false;
            Changed();
            if (!failure.isEmpty())
                Say(failure);
            return;
        }
        switch (step) {
        case TickStep::Release:
            break;
        case TickStep::Status:
            m_nStatusWord = e.Word(0);
            break;
        case TickStep::Sources:
            m_nReg0002 = e.Word(0);
            m_nFreqSource = e.Word(3);
            m_bRunFromLink = m_nReg0002 == kRunFromLink;
            m_bFreqFromLink = m_nFreqSource == kFreqFromLink;
            break;
        case TickStep::Limits:
            m_nUpperLimit = e.Word(0);
            m_nLowerLimit = KeyPadLowerLimit(e.Word(1));
            break;
        case TickStep::Block:
            m_block = e.rx;
            break;
        }
    }
    if (m_bKnobInitial || m_edit.freqEdited) {
        PlaceKnob();
        m_edit.freqEdited = false;
        m_bKnobInitial = false;
    }
    Changed();
}

// The knob follows the drive's frequency command: at the first tick, and after a typed one.
void CKeyPad::PlaceKnob()
{
    const double command = FrameWord(m_block.data(), 3 + 2 * Monitor::SetFrequency);
    double value = command;
    if (!m_bKnobInitial) {
        value = std::atof(QString::asprintf("%.2f", command * 0.01).toLatin1().constData()) * 100;
        if (value < m_nLowerLimit || value > m_nUpperLimit)
            value = 0;
    }
    if (const std::optional<QPoint> at = KnobPointForValue(value, m_nLowerLimit, m_nUpperLimit)) {
        m_bDragging = true;
        DragTo(*at);
        m_bDragging = false;
    }
}

void CKeyPad::DragTo(QPoint at)
{
    const std::optional<KnobTurn> turn = KnobDrag(at, m_nLowerLimit, m_nUpperLimit);
    if (!turn)
        return;
    m_pointer = turn->pointer;
    if (turn->value && !m_bKnobInitial && !m_edit.freqEdited)
        m_edit.text = QString::asprintf("%.2f", *turn->value * 0.01);
    Changed();
}

void CKeyPad::OnPress(QPoint at)
{
    switch (KeyPadKeyAt(at)) {
    case KeyPadKey::Knob: m_bDragging = true; break;
    case KeyPadKey::Run: OnRun(); break;
    case KeyPadKey::Stop: OnStop(); break;
    case KeyPadKey::Up: OnUp(); break;
    case KeyPadKey::Down: OnDown(); break;
    case KeyPadKey::None: break;
    }
}

void CKeyPad::OnMouseMove(QPoint at, bool leftButtonDown)
{
    if (m_bDragging && leftButtonDown) {
        m_bPointerActive = true;
        DragTo(at);
    } else {
        m_bPointerActive = false;
        Changed();
    }
}

void CKeyPad::OnRun() { SwitchRun(true); }
void CKeyPad::OnStop() { SwitchRun(false); }

void CKeyPad::SwitchRun(bool run)
{
    if (!m_bRunFromLink) {
        Say(kRunSourceError);
        return;
    }
    auto job = std::make_shared<RunSwitch>();
    job->read = ReadExchange(m_nStation, RegControlWord, 1);
    const int station = m_nStation;
    m_runner.Run(
        [job, station, run](CDriveSerial* link) {
            job->read.Run(link);
            if (!job->read.Ok())
                return;
            const std::uint16_t word = job->read.Word(0);
            // Nothing is sent when the drive already runs (or stands).
            if (static_cast<bool>(word & ControlBit::Run) == run)
                return;
            const std::uint16_t changed = run ? (word | ControlBit::Run) : (word & ~ControlBit::Run);
            job->write = WriteExchange(station, RegControlWord, changed);
            job->write->Run(link);
        },
        [this, job, run] {
            if (!job->read.Ok()) {
                const ReplyVerdict verdict = job->read.Judge(ReplyCaller::ControlPanel);
                // A transport fault stops the ticks; the drive's refusal is only reported.
                if (!verdict.text.isEmpty() && !verdict.exception) {
                    m_bPolling = false;
                    m_bDragging = false;
                    Changed();
                }
                if (!verdict.text.isEmpty())
                    Say(verdict.text);
            } else if (job->write && !job->write->Ok()) {
                Say(run ? QStringLiteral("Write run command error!")
                        : QStringLiteral("Write stop command error!"));
            }
        });
}

void CKeyPad::OnUp()
{
    m_nDisplayIndex = StepDisplayItem(m_nDisplayIndex, true);
    Changed();
}

void CKeyPad::OnDown()
{
    m_nDisplayIndex = StepDisplayItem(m_nDisplayIndex, false);
    Changed();
}

void CKeyPad::OnKnobStep(int hundredths)
{
    const double now = FrequencyCommandValue(m_edit.text, kKeyPadFrequencyNudge);
    const double value = std::clamp(now + hundredths, static_cast<double>(m_nLowerLimit),
                                    static_cast<double>(m_nUpperLimit));
    if (const std::optional<QPoint> at = KnobPointForValue(value, m_nLowerLimit, m_nUpperLimit)) {
        m_bDragging = true;
        DragTo(*at);
    }
    // The pointer moves by whole pixels; the frequency by the step.
    m_edit.text = QString::asprintf("%.2f", value * 0.01);
    m_bDragging = true;  // sent at the next tick, as at a drag's release
    m_bPointerActive = false;
    Changed();
}

void CKeyPad::OnDisplayChosen(int index)
{
    m_nDisplayIndex = index;
    m_bFreqEditEnabled = index == 0;
    Changed();
}

QString CKeyPad::OnFreqEdited(const QString& text)
{
    m_edit.text = FilterFrequencyText(m_edit.text, text, m_nUpperLimit + 0.001);
    return m_edit.text;
}

void CKeyPad::OnFreqFocusLost(bool toSameWindow)
{
    if (m_edit.inMessage) {
        m_edit.inMessage = false;
        return;
    }
    if (toSameWindow)
        OnFreqEnter();
}

void CKeyPad::OnFreqEnter()
{
    if (!m_bFreqFromLink) {
        Say(kFreqSourceError);
        return;
    }
    if (!TypedFrequencyInRange(m_nLowerLimit, m_nUpperLimit)) {
        Say(QStringLiteral("Frequency value beyond the range!"));
        return;
    }
    const std::uint16_t value = FrequencyCommandValue(m_edit.text, kKeyPadFrequencyNudge);
    m_edit.freqEdited = true;
    auto write = std::make_shared<LinkExchange>(WriteExchange(m_nStation, RegFrequencyCommand, value));
    m_runner.Run([write](CDriveSerial* link) { write->Run(link); },
                 [this, write] {
                     if (!write->Ok())
                         Say(QStringLiteral("Set frequency value error!"));
                 });
}

QString CKeyPad::LedText() const
{
    return KeyPadItemText(m_nDisplayIndex, m_block, true);
}

QString CKeyPad::MonitorText(int slot) const
{
    return KeyPadItemText(m_monitorItems[slot], m_block, false);
}

}  // namespace quillon
