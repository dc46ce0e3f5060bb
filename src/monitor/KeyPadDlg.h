#pragma once
// The "KeyPad" window: the picture of the drive's operator panel and, beside it, the station
// choice, the two lamps that say whether the drive takes commands from the link, the choice of
// what the LED display shows, four monitor slots and the typed frequency ("FREQ.SET"). Modal
// from the menu. The logic is CKeyPad; the window owns the 100 ms timer and hands each tick the
// left mouse button's state.

#include "monitor/KeyPad.h"
#include "monitor/MonitorContext.h"

#include <QDialog>
#include <array>
#include <memory>

class QComboBox;
class QLineEdit;
class QTimer;

namespace quillon {

class CKeyPadPicture;

class CKeyPadDlg final : public QDialog {
    Q_OBJECT
public:
    explicit CKeyPadDlg(MonitorContext context, QWidget* parent = nullptr);
    ~CKeyPadDlg() override;

    CKeyPad& KeyPad() { return *m_keypad; }
    CKeyPadPicture* Picture() const { return m_picture; }
    QTimer* TickTimer() const { return m_timer; }
    QComboBox* DisplayList() const { return m_display; }
    QLineEdit* FrequencyEdit() const { return m_frequency; }
    QLineEdit* MonitorSlot(int slot) const { return m_slots[slot]; }
    // The left button now: Qt's application-wide state, or, on Wayland, which has none, what
    // the picture saw last.
    bool LeftButtonDown() const;

    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OnChanged();

    MonitorContext m_context;
    std::unique_ptr<IExchangeRunner> m_runner;
    std::unique_ptr<CKeyPad> m_keypad;
    QTimer* m_timer;
    CKeyPadPicture* m_picture;
    QComboBox* m_display;
    QLineEdit* m_frequency;
    std::array<QWidget*, 2> m_lamps{};
    std::array<QLineEdit*, 4> m_slots{};
};

}  // namespace quillon
