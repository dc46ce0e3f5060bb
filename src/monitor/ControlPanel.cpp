#include "monitor/ControlPanel.h"

#include "base/Prompt.h"
#include "link/Registers.h"
#include "monitor/FrequencyEdit.h"

#include <memory>
#include <optional>

namespace quillon {
namespace {

struct BitChange {
    ControlCommand command;
    std::uint16_t set;
    std::uint16_t clear;
};

// "Abnormal" and "Fault Reset" only ever set their bits; the drive clears them.
constexpr BitChange kCommands[] = {
    {ControlCommand::Run, ControlBit::Run, 0},
    {ControlCommand::Stop, 0, ControlBit::Run},
    {ControlCommand::Forward, 0, ControlBit::Reverse},
    {ControlCommand::Reverse, ControlBit::Reverse, 0},
    {ControlCommand::Abnormal, ControlBit::ExternalFault, 0},
    {ControlCommand::FaultReset, ControlBit::FaultReset, 0},
};

// A read and the write that may follow it, as one job.
struct ReadThenWrite {
    LinkExchange read;
    std::optional<LinkExchange> write;
    bool outOfRange = false;
};

}  // namespace

std::uint16_t ApplyControlCommand(ControlCommand command, std::uint16_t word)
{
    for (const BitChange& c : kCommands) {
        if (c.command == command)
            return static_cast<std::uint16_t>((word | c.set) & ~c.clear);
    }
    return word;
}

CControlPanel::CControlPanel(IExchangeRunner& runner, std::vector<int> stations, int stationIndex)
    : m_runner(runner), m_stations(std::move(stations))
{
    SelectStation(stationIndex);
}

void CControlPanel::SelectStation(int index)
{
    m_nStationIndex = index;
    m_nStation = StationAt(m_stations, index);
}

QString CControlPanel::JogForwardText() const
{
    return m_nJogForward ? QStringLiteral("Stop jog forward") : QStringLiteral("Jog forward");
}

QString CControlPanel::JogReverseText() const
{
    return m_nJogReverse ? QStringLiteral("Stop jog reverse") : QStringLiteral("Jog Reverse");
}

void CControlPanel::Report(const LinkExchange& exchange)
{
    const ReplyVerdict verdict = exchange.Judge(ReplyCaller::ControlPanel);
    if (!verdict.ok)
        ++m_nFailures;
    ShowVerdict(verdict);
}

void CControlPanel::Tick()
{
    if (!m_bPolling || m_bInFlight)
        return;
    m_bInFlight = true;
    auto poll = std::make_shared<LinkExchange>(ReadExchange(m_nStation, RegControlWord, 1));
    m_runner.Run([poll](CDriveSerial* link) { poll->Run(link); },
                 [this, poll] {
                     m_bInFlight = false;
                     QString failure;
                     if (poll->Ok()) {
                         m_nControlWord = poll->Word(0);
                         m_nJogForward = m_nControlWord & ControlBit::JogForward;
                         m_nJogReverse = m_nControlWord & ControlBit::JogReverse;
                     } else {
                         failure = poll->Judge(ReplyCaller::ControlPanel).text;
                         // Results the table doesn't know say nothing and poll on.
                         if (!failure.isEmpty())
                             m_bPolling = false;
                     }
                     if (onChanged)
                         onChanged();
                     if (!failure.isEmpty())
                         Prompt().Message(failure);
                 });
}

void CControlPanel::OnCommand(ControlCommand command)
{
    auto job = std::make_shared<ReadThenWrite>();
    job->read = ReadExchange(m_nStation, RegControlWord, 1);
    const int station = m_nStation;
    m_runner.Run(
        [job, command, station](CDriveSerial* link) {
            job->read.Run(link);
            if (!job->read.Ok())
                return;
            job->write = WriteExchange(station, RegControlWord,
                                       ApplyControlCommand(command, job->read.Word(0)));
            job->write->Run(link);
        },
        [this, job] { Report(job->write ? *job->write : job->read); });
}

void CControlPanel::OnJog(bool forward)
{
    const std::uint16_t bit = forward ? ControlBit::JogForward : ControlBit::JogReverse;
    const std::uint16_t polled = forward ? m_nJogForward : m_nJogReverse;
    m_nControlWord = static_cast<std::uint16_t>(polled ? (m_nControlWord & ~bit) : (m_nControlWord | bit));
    auto write = std::make_shared<LinkExchange>(WriteExchange(m_nStation, RegControlWord, m_nControlWord));
    m_runner.Run([write](CDriveSerial* link) { write->Run(link); },
                 [this, write] { Report(*write); });
}

QString CControlPanel::OnFrequencyEdited(const QString& text)
{
    m_strFrequency = FilterFrequencyText(m_strFrequency, text);
    return m_strFrequency;
}

void CControlPanel::OnSet()
{
    auto job = std::make_shared<ReadThenWrite>();
    job->read = ReadExchange(m_nStation, RegUpperLimit, 2);
    const int station = m_nStation;
    const std::uint16_t value = FrequencyCommandValue(m_strFrequency);
    m_runner.Run(
        [job, station, value](CDriveSerial* link) {
            job->read.Run(link);
            if (!job->read.Ok())
                return;
            const std::uint16_t upper = job->read.Word(0);
            const std::uint16_t lower = job->read.Word(1);
            if (value < lower || value > upper) {
                job->outOfRange = true;
                return;
            }
            job->write = WriteExchange(station, RegFrequencyCommand, value);
            job->write->Run(link);
        },
        [this, job] {
            if (job->outOfRange) {
                ++m_nFailures;
                Prompt().Message(QString::fromLatin1(kFrequencyRangeText));
            } else {
                Report(job->write ? *job->write : job->read);
            }
        });
}

}  // namespace quillon
