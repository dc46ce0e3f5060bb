#pragma once
// The picture of the drive's operator panel in the "KeyPad" window, 300 by 400 pixels: the
// five-digit LED display, the direction lamps, the UP, DOWN, RUN and STOP/RESET keys and the
// frequency knob with its pointer, all drawn here so they stay sharp at any scale. It paints
// what CKeyPad holds and hands it the clicks, the mouse moves and the knob's keys: the arrow
// keys turn the knob by 0.10 Hz, Page Up and Page Down by 1 Hz, Home and End to the limits.

#include <QWidget>

namespace quillon {

class CKeyPad;

inline constexpr QSize kKeyPadPictureSize{300, 400};

class CKeyPadPicture final : public QWidget {
    Q_OBJECT
public:
    CKeyPadPicture(CKeyPad& keypad, QWidget* parent = nullptr);
    QSize sizeHint() const override { return kKeyPadPictureSize; }
    // The left button as this widget last saw it.
    bool LeftButtonSeen() const { return m_bLeftSeen; }

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    CKeyPad& m_keypad;
    bool m_bLeftSeen = false;
};

}  // namespace quillon
