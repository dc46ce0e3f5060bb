#pragma once
// The logic of the "Monitor Control" panel: it runs and stops one drive, turns its direction,
// jogs it, trips and resets it, and sets its frequency command, through the control word
// (RegControlWord) and the frequency command (RegFrequencyCommand). It knows nothing of the
// project: every value comes from the drive or from the person.
//
// The widget owns the 100 ms timer and calls Tick; after every change it asks IsPolling() to
// stop the timer and takes the jog buttons' texts. The command buttons read the control word
// fresh, change one bit and write it back; the jog buttons work from the polled word. A failed
// poll stops the polling with a message; a failed command says why and the polling goes on.
// The keypad builds on the same pieces.

#include "monitor/LinkExchange.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <vector>

namespace quillon {

inline constexpr int kControlPollPeriodMs = 100;
inline constexpr const char* kDefaultFrequencyText = "50.00";
inline constexpr const char* kFrequencyRangeText =
    "The value of set frequency beyond the range of frequency upper and lower limit!";

// The buttons that read, change one bit and write the control word.
enum class ControlCommand { Run, Stop, Forward, Reverse, Abnormal, FaultReset };

// The control word `word` after `command`.
std::uint16_t ApplyControlCommand(ControlCommand command, std::uint16_t word);

class CControlPanel {
public:
    CControlPanel(IExchangeRunner& runner, std::vector<int> stations, int stationIndex);

    const std::vector<int>& Stations() const { return m_stations; }
    int StationIndex() const { return m_nStationIndex; }
    int Station() const { return m_nStation; }
    // Another entry of the station list; the next poll reads the new station.
    void SelectStation(int index);

    // The poll: reads the control word of the station.
    void Tick();
    bool IsPolling() const { return m_bPolling; }
    std::uint16_t ControlWord() const { return m_nControlWord; }
    QString JogForwardText() const;
    QString JogReverseText() const;

    void OnCommand(ControlCommand command);
    // The jog buttons: toggle the jog bit against the polled state and write the stored word.
    void OnJog(bool forward);

    QString FrequencyText() const { return m_strFrequency; }
    // A change of the edit's text; returns the text the edit is to show.
    QString OnFrequencyEdited(const QString& text);
    // "Set": reads the limits, checks and sends the frequency command.
    void OnSet();

    // Commands and "Set"s that failed or were refused since construction.
    int Failures() const { return m_nFailures; }

    // Called after every poll's completion.
    std::function<void()> onChanged;

private:
    void Report(const LinkExchange& exchange);

    IExchangeRunner& m_runner;
    std::vector<int> m_stations;
    int m_nStationIndex = 0;
    int m_nStation = 0;
    QString m_strFrequency = QString::fromLatin1(kDefaultFrequencyText);
    std::uint16_t m_nControlWord = 0;
    std::uint16_t m_nJogForward = 0;  // the polled word masked with 0x10
    std::uint16_t m_nJogReverse = 0;  // and with 0x20
    bool m_bPolling = true;
    bool m_bInFlight = false;
    int m_nFailures = 0;
};

}  // namespace quillon
