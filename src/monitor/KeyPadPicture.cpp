#include "monitor/KeyPadPicture.h"

#include "base/ErrorReport.h"
#include "link/Registers.h"
#include "monitor/KeyPad.h"
#include "monitor/LedDisplay.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>
#include <QRadialGradient>
#include <cmath>
#include <numbers>

namespace quillon {
namespace {

const QColor kLedLit(255, 48, 32);
const QColor kLedDark(58, 16, 14);
const QColor kLegend(205, 210, 218);

// The keys as the hot areas have them (right and bottom edges inclusive).
struct KeyFace {
    QRect area;
    const char* line1;
    const char* line2;
    QColor text;
};
const KeyFace kKeys[] = {
    {QRect(QPoint(43, 137), QPoint(110, 179)), "\u25B2", "UP", QColor(30, 36, 44)},
    {QRect(QPoint(43, 195), QPoint(110, 237)), "\u25BC", "DOWN", QColor(30, 36, 44)},
    {QRect(QPoint(43, 253), QPoint(110, 295)), "RUN", nullptr, QColor(0, 120, 40)},
    {QRect(QPoint(112, 253), QPoint(179, 295)), "STOP", "RESET", QColor(190, 20, 20)},
};

// One digit of kLedDigitSize at `at`: seven bevelled bars, the lit ones bright.
void PaintDigit(QPainter& p, QPointF at, std::uint8_t lit)
{
    const double w = kLedDigitSize.width(), h = kLedDigitSize.height();
    const double t = 4.0, gap = 0.8;  // bar thickness, gap at the joints
    const double mid = h / 2;
    // A bar from a to b (horizontal or vertical), pointed at both ends.
    const auto bar = [&](QPointF a, QPointF b) {
        const QPointF u = a.y() == b.y() ? QPointF(1, 0) : QPointF(0, 1);
        const QPointF n(u.y(), u.x());
        const double ht = t / 2;
        const QPointF a1 = a + u * gap, b1 = b - u * gap;
        return QPolygonF({a1, a1 + (u + n) * ht, b1 + (n - u) * ht, b1, b1 - (u + n) * ht,
                          a1 + (u - n) * ht});
    };
    const double l = at.x() + t / 2 + 1, r = at.x() + w - t / 2 - 1;
    const double top = at.y() + t / 2, bottom = at.y() + h - t / 2, centre = at.y() + mid;
    const QPolygonF bars[7] = {
        bar({l, top}, {r, top}),             // A
        bar({r, top}, {r, centre}),          // B
        bar({r, centre}, {r, bottom}),       // C
        bar({l, bottom}, {r, bottom}),       // D
        bar({l, centre}, {l, bottom}),       // E
        bar({l, top}, {l, centre}),          // F
        bar({l, centre}, {r, centre}),       // G
    };
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 7; ++i) {
        p.setBrush(lit & (1 << i) ? kLedLit : kLedDark);
        p.drawPolygon(bars[i]);
    }
}

// A rounded box shaded from `top` down to `bottom`, outlined by `pen`.
void ShadedBox(QPainter& p, const QRectF& r, double radius, QColor top, QColor bottom, const QPen& pen)
{
    QLinearGradient g(r.topLeft(), r.bottomLeft());
    g.setColorAt(0, top);
    g.setColorAt(1, bottom);
    p.setPen(pen);
    p.setBrush(g);
    p.drawRoundedRect(r, radius, radius);
}

void SetFont(QPainter& p, int pixels, bool bold)
{
    QFont f = p.font();
    f.setBold(bold);
    f.setPixelSize(pixels);
    p.setFont(f);
}

void PaintKey(QPainter& p, const KeyFace& key)
{
    const QRectF r = QRectF(key.area).adjusted(2.5, 2.5, -1.5, -1.5);
    ShadedBox(p, r, 6, QColor(236, 238, 242), QColor(176, 182, 192), QPen(QColor(25, 28, 34), 1.2));
    SetFont(p, 13, true);
    p.setPen(key.text);
    const QString text = key.line2 ? QString::fromUtf8(key.line1) + QLatin1Char('\n') +
                                         QString::fromLatin1(key.line2)
                                   : QString::fromLatin1(key.line1);
    p.drawText(r, Qt::AlignCenter, text);
}

void PaintKnob(QPainter& p)
{
    const QPointF c(kKnobCentre);
    // The scale: 270 degrees from the lower left over the top to the lower right.
    p.setPen(QPen(kLegend, 1.4, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i <= 10; ++i) {
        const double a = (225.0 - 27.0 * i) * std::numbers::pi / 180;
        const QPointF dir(std::cos(a), -std::sin(a));
        p.drawLine(c + dir * 29.5, c + dir * (i % 5 ? 32.5 : 35.0));
    }
    QRadialGradient ring(c, 27);
    ring.setColorAt(0.8, QColor(40, 44, 50));
    ring.setColorAt(1.0, QColor(20, 22, 26));
    p.setPen(Qt::NoPen);
    p.setBrush(ring);
    p.drawEllipse(c, 27, 27);
    QRadialGradient face(c - QPointF(7, 8), 30);
    face.setColorAt(0, QColor(250, 251, 252));
    face.setColorAt(0.7, QColor(178, 184, 192));
    face.setColorAt(1, QColor(120, 126, 134));
    p.setPen(QPen(QColor(60, 64, 70), 1.0));
    p.setBrush(face);
    p.drawEllipse(c, 23, 23);
    SetFont(p, 10, false);
    p.setPen(kLegend);
    p.drawText(QRectF(c.x() - 40, c.y() + 33, 80, 14), Qt::AlignCenter, QStringLiteral("FREQ"));
    p.drawText(QRectF(c.x() - 52, c.y() + 24, 30, 12), Qt::AlignCenter, QStringLiteral("MIN"));
    p.drawText(QRectF(c.x() + 22, c.y() + 24, 30, 12), Qt::AlignCenter, QStringLiteral("MAX"));
}

// The panel without what changes: body, display window, lamp legends, keys and knob.
void PaintPanel(QPainter& p)
{
    const QRectF body(4.5, 4.5, kKeyPadPictureSize.width() - 9, kKeyPadPictureSize.height() - 9);
    ShadedBox(p, body, 16, QColor(78, 86, 98), QColor(44, 49, 57), QPen(QColor(22, 24, 28), 1.5));

    SetFont(p, 15, true);
    p.setPen(QColor(240, 242, 246));
    p.drawText(QRectF(24, 14, 120, 24), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("R770"));
    SetFont(p, 10, false);
    p.setPen(kLegend);
    p.drawText(QRectF(150, 14, 126, 24), Qt::AlignRight | Qt::AlignVCenter,
               QStringLiteral("DIGITAL OPERATOR"));

    // The display window holds the five digits and, below them, the direction lamps.
    p.setPen(QPen(QColor(16, 16, 18), 2));
    p.setBrush(QColor(14, 8, 8));
    p.drawRoundedRect(QRectF(50, 47, 196, 76), 5, 5);
    p.setPen(kLegend);
    p.drawText(QRectF(84, 99, 34, 14), Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("FWD"));
    p.drawText(QRectF(182, 99, 34, 14), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("REV"));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(20, 60, 24));
    for (int x : {120, 165})
        p.drawRoundedRect(QRectF(x, 101, 15, 9), 2, 2);

    for (const KeyFace& key : kKeys)
        PaintKey(p, key);
    PaintKnob(p);

    SetFont(p, 10, false);
    p.setPen(kLegend);
    p.drawText(QRectF(20, 330, 260, 40), Qt::AlignCenter,
               QStringLiteral("R770 SERIES\nVARIABLE FREQUENCY DRIVE"));
}

}  // namespace

CKeyPadPicture::CKeyPadPicture(CKeyPad& keypad, QWidget* parent) : QWidget(parent), m_keypad(keypad)
{
    setFixedSize(kKeyPadPictureSize);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QStringLiteral("Frequency knob"));
}

void CKeyPadPicture::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    PaintPanel(p);

    const KnobPointer& ptr = m_keypad.Pointer();
    p.setPen(Qt::NoPen);
    p.setBrush(m_keypad.PointerHeld() ? QColor(0, 0, 0) : QColor(255, 0, 0));
    p.drawPolygon(QPolygon({ptr.tip, ptr.base1, ptr.base2}));

    p.setBrush(QColor(0, 255, 0));
    p.drawRoundedRect(QRectF(m_keypad.StatusWord() & StatusBit::Reverse ? 165 : 120, 101, 15, 9), 2, 2);

    for (const LedGlyph& glyph : LedLayout(m_keypad.LedText())) {
        if (glyph.point) {
            p.setPen(Qt::NoPen);
            p.setBrush(kLedLit);
            p.drawEllipse(QRectF(glyph.at, kLedPointSize).center() + QPointF(0, 2), 2.6, 2.6);
        } else {
            PaintDigit(p, glyph.at, glyph.segments);
        }
    }
    if (hasFocus()) {
        p.setPen(QPen(palette().color(QPalette::Highlight), 1.5, Qt::DotLine));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(QPointF(kKnobCentre), 39, 39);
    }
}

void CKeyPadPicture::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_bLeftSeen = true;
    GuardedCall([&] { m_keypad.OnPress(event->position().toPoint()); });
}

void CKeyPadPicture::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);  // a double click counts as a click
}

void CKeyPadPicture::mouseMoveEvent(QMouseEvent* event)
{
    GuardedCall([&] {
        m_keypad.OnMouseMove(event->position().toPoint(), event->buttons() & Qt::LeftButton);
    });
}

void CKeyPadPicture::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_bLeftSeen = false;
}

void CKeyPadPicture::keyPressEvent(QKeyEvent* event)
{
    const double range = m_keypad.UpperLimit() - static_cast<double>(m_keypad.LowerLimit());
    int step = 0;
    switch (event->key()) {
    case Qt::Key_Right: case Qt::Key_Up: step = 10; break;
    case Qt::Key_Left: case Qt::Key_Down: step = -10; break;
    case Qt::Key_PageUp: step = 100; break;
    case Qt::Key_PageDown: step = -100; break;
    case Qt::Key_End: step = static_cast<int>(std::abs(range)) + 1; break;
    case Qt::Key_Home: step = -static_cast<int>(std::abs(range)) - 1; break;
    default: QWidget::keyPressEvent(event); return;
    }
    GuardedCall([&] { m_keypad.OnKnobStep(step); });
}

}  // namespace quillon
