#pragma once
// The logic of the "KeyPad" window: the drive's operator panel on the screen. RUN and STOP on
// the picture run and stop the drive through the control word, the knob sets the frequency
// command, the LED display and the monitor slots show values of the monitor block, and two lamps
// say whether the drive takes its run command (00-02 = 2) and its frequency (00-05 = 5) from the
// link. The keypad refuses RUN, STOP and frequencies while the drive doesn't.
//
// The widget owns the 100 ms timer and calls Tick with the state of the left mouse button, so a
// drag ends when the button comes up, whatever window it comes up over. Each tick sends the
// frequency of a released knob, then reads the status word, the command sources, the frequency
// limits and the monitor block. While a tick's exchanges are under way a further tick only
// notes that one is due, and onTickDue asks for it when they end: on a line slower than the
// timer the ticks follow each other as fast as the line allows and never pile up, as the drive
// tool's timer messages waited for its busy window. A failed exchange stops the ticks with a
// message.

#include "monitor/LinkExchange.h"
#include "monitor/KnobMapping.h"

#include <QPoint>
#include <QString>
#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace quillon {

inline constexpr int kKeyPadPollPeriodMs = 100;
// Added to a frequency's number before it becomes hundredths, so 0.29 stays 29.
inline constexpr double kKeyPadFrequencyNudge = 0.00001;

// What a click on the picture hits.
enum class KeyPadKey { None, Knob, Run, Stop, Up, Down };
KeyPadKey KeyPadKeyAt(QPoint at);

// The lower frequency limit as the keypad takes it from 00-13: its high byte times 257, so that
// the low byte is lost and the high byte counts twice (5.00 Hz reads as 2.57 Hz).
std::uint16_t KeyPadLowerLimit(std::uint16_t reg000D);

// The range check of a typed frequency. It has always tested a working text that is never
// filled, which reads as 0, instead of what was typed: it passes whenever the lower limit is not
// above zero and refuses every entry otherwise. Kept so.
bool TypedFrequencyInRange(std::uint16_t lowerLimit, std::uint16_t upperLimit);

// The "FREQ.SET" edit: its text, whether a typed frequency was just sent (the knob then follows
// the drive at the next tick) and whether a message of its own is up, so that the focus the
// message takes is not taken for a new entry.
struct CFreqEdit {
    QString text = QStringLiteral("0.00");
    bool freqEdited = false;
    bool inMessage = false;
};

class CKeyPad {
public:
    CKeyPad(IExchangeRunner& runner, std::vector<int> stations, int stationIndex = 0);

    const std::vector<int>& Stations() const { return m_stations; }
    int StationIndex() const { return m_nStationIndex; }
    int Station() const { return m_nStation; }
    void SelectStation(int index);

    // The timer's tick. `leftButtonDown`: the left mouse button as it is now.
    void Tick(bool leftButtonDown);
    bool IsPolling() const { return m_bPolling; }
    // A tick's exchanges are under way.
    bool IsTicking() const { return m_bTicking; }

    // The picture: a click (or double click), and a mouse move with the left button's state.
    void OnPress(QPoint at);
    void OnMouseMove(QPoint at, bool leftButtonDown);
    void OnRun();
    void OnStop();
    // UP and DOWN step the display's item list; the drive is not asked.
    void OnUp();
    void OnDown();
    // The keyboard's knob: turns it by `hundredths` within the limits, as a drag would, and the
    // next tick sends the frequency as at the release of a drag.
    void OnKnobStep(int hundredths);

    // The display's item list as the person chose it: other than the first entry disables the
    // frequency edit.
    void OnDisplayChosen(int index);
    int DisplayIndex() const { return m_nDisplayIndex; }
    bool FreqEditEnabled() const { return m_bFreqEditEnabled; }
    int MonitorItem(int slot) const { return m_monitorItems[slot]; }
    void SetMonitorItem(int slot, int item) { m_monitorItems[slot] = item; }

    // The frequency edit: a change of its text (returns the text to show), and its entry, at
    // Enter or when it loses the focus (`toSameWindow`: to another control of this window).
    QString FreqText() const { return m_edit.text; }
    QString OnFreqEdited(const QString& text);
    void OnFreqEnter();
    void OnFreqFocusLost(bool toSameWindow);

    // What the picture shows.
    std::uint16_t StatusWord() const { return m_nStatusWord; }
    bool RunFromLink() const { return m_bRunFromLink; }
    bool FreqFromLink() const { return m_bFreqFromLink; }
    std::uint16_t UpperLimit() const { return m_nUpperLimit; }
    std::uint16_t LowerLimit() const { return m_nLowerLimit; }
    const std::vector<unsigned char>& Block() const { return m_block; }
    const KnobPointer& Pointer() const { return m_pointer; }
    bool Dragging() const { return m_bDragging; }
    // The pointer turns black while the person drags it.
    bool PointerHeld() const { return m_bDragging && m_bPointerActive; }
    QString LedText() const;
    QString MonitorText(int slot) const;

    // After every change of what is shown, and after each tick.
    std::function<void()> onChanged;
    // A tick came due while the last one was under way; the widget calls Tick now.
    std::function<void()> onTickDue;

private:
    struct TickJob;
    void TickDone(const TickJob& job);
    void DragTo(QPoint at);
    void PlaceKnob();
    void SwitchRun(bool run);
    void Say(const QString& text);
    void Changed();

    IExchangeRunner& m_runner;
    std::vector<int> m_stations;
    int m_nStationIndex = 0;
    int m_nStation = 0;
    int m_nDisplayIndex = 0;
    bool m_bFreqEditEnabled = true;
    std::array<int, 4> m_monitorItems{1, 2, 3, 4};
    CFreqEdit m_edit;
    std::uint16_t m_nStatusWord = 0;
    std::uint16_t m_nReg0002 = 0;
    std::uint16_t m_nFreqSource = 0;
    bool m_bRunFromLink = false;
    bool m_bFreqFromLink = false;
    std::uint16_t m_nUpperLimit = 0;
    std::uint16_t m_nLowerLimit = 0;
    std::vector<unsigned char> m_block;
    bool m_bDragging = false;
    bool m_bPointerActive = false;
    bool m_bKnobInitial = true;
    KnobPointer m_pointer = kKnobPointerAtStart;
    bool m_bPolling = true;
    bool m_bTicking = false;
    bool m_bTickDue = false;
};

}  // namespace quillon
