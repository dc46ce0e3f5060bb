#include "monitor/PanelPictures.h"

#include "base/Language.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

namespace quillon {
namespace {

const QColor kPanel(232, 234, 238);
const QColor kFrame(120, 128, 140);
const QColor kCaption(30, 40, 60);

QColor LitColour(LampColour c)
{
    switch (c) {
    case LampColour::Green: return QColor(0, 255, 0);
    case LampColour::Red: return QColor(255, 0, 0);
    case LampColour::Orange: return QColor(255, 165, 0);
    }
    return Qt::white;
}

void Background(QPainter& p, const QString& title)
{
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(QRect(QPoint(0, 0), kPanelPictureSize), kPanel);
    QFont big = p.font();
    big.setPointSizeF(big.pointSizeF() * 1.5);
    big.setBold(true);
    p.save();
    p.setFont(big);
    p.setPen(kCaption);
    p.drawText(QRect(0, 50, kPanelPictureSize.width(), 36), Qt::AlignCenter, title);
    p.restore();
}

// A framed box with its caption standing in the top line.
void Box(QPainter& p, const QRect& r, const QString& caption)
{
    p.save();
    p.setPen(QPen(kFrame, 1.2));
    p.setBrush(QColor(246, 247, 250));
    p.drawRoundedRect(QRectF(r).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    const QFontMetrics fm(p.font());
    const QRect cap(r.left() + 10, r.top() - fm.height() / 2, fm.horizontalAdvance(caption) + 8,
                    fm.height());
    p.fillRect(cap, kPanel);
    p.setPen(kCaption);
    p.drawText(cap, Qt::AlignCenter, caption);
    p.restore();
}

// A caption centred vertically on the row of a lamp or value at `y`.
void Label(QPainter& p, int x, int y, int width, const QString& text, Qt::Alignment align)
{
    p.save();
    p.setPen(kCaption);
    p.drawText(QRect(x, y - 2, width, kLampSize + 4), align | Qt::AlignVCenter, text);
    p.restore();
}

}  // namespace

void PaintLamp(QPainter& p, const Lamp& lamp, bool lit)
{
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF r(lamp.x + 1, lamp.y + 1, kLampSize - 2, kLampSize - 2);
    const QColor base = lit ? LitColour(lamp.colour) : QColor(70, 74, 80);
    QRadialGradient g(r.center() - QPointF(3, 3), kLampSize * 0.6);
    g.setColorAt(0.0, lit ? base.lighter(170) : QColor(120, 124, 130));
    g.setColorAt(0.6, base);
    g.setColorAt(1.0, base.darker(lit ? 150 : 120));
    p.setPen(QPen(QColor(40, 40, 40), 1.0));
    p.setBrush(g);
    p.drawEllipse(r);
    p.restore();
}

void PaintTextAt(QPainter& p, QPoint at, const QString& text, const QColor& colour)
{
    p.save();
    p.setPen(colour);
    p.setBackgroundMode(Qt::TransparentMode);
    const QFontMetrics fm(p.font());
    p.drawText(QRect(at, QSize(fm.horizontalAdvance(text), fm.height())),
               Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    p.restore();
}

void PaintStatusPicture(QPainter& p)
{
    Background(p, Translated("Panel", "变频器运行状态"));
    Box(p, QRect(30, 100, 150, 170), Translated("Panel", "运行状态"));
    Box(p, QRect(190, 100, 290, 170), Translated("Panel", "运行数据"));
    Box(p, QRect(485, 100, 200, 170), Translated("Panel", "故障"));
    Box(p, QRect(30, 295, 655, 60), Translated("Panel", "故障说明"));

    const char* lampNames[] = {"准备", "异常", "停止", "运行", "正转", "反转"};
    for (int i = 0; i < 6; ++i) {
        const int y = 117 + 24 * i;
        Label(p, 42, y, 95, Translated("Panel", lampNames[i]), Qt::AlignLeft);
        PaintLamp(p, Lamp{LampColour::Green, 143, y}, false);
    }
    PaintLamp(p, Lamp{LampColour::Red, 497, 117}, false);
    Label(p, 527, 117, 80, Translated("Panel", "故障"), Qt::AlignLeft);
    Label(p, 497, 140, 105, Translated("Panel", "故障代码:"), Qt::AlignRight);

    // The measured values: caption left of the value, unit right of it.
    struct Row {
        int y;
        const char* caption;
        const char* unit;
    };
    const Row rows[] = {{119, "设定频率", "Hz"},
                        {142, "输出频率", "Hz"},
                        {167, "输出电流", "A"},
                        {191, "输出电压", "Volts"},
                        {215, "直流电压", "Volts"}};
    const QFontMetrics fm(p.font());
    for (const Row& r : rows) {
        const int y = r.y + fm.height() / 2 - kLampSize / 2;
        Label(p, 200, y, 160, Translated("Panel", r.caption) + QStringLiteral(":"), Qt::AlignRight);
        Label(p, 430, y, 48, QString::fromUtf8(r.unit), Qt::AlignLeft);
    }
}

// The control terminal strip of the drive: a row of screw terminals with their names.
static void TerminalStrip(QPainter& p)
{
    const char* names[] = {"R1A", "R1B", "R1C", "DI1", "DI2", "DI3", "DI4", "COM", "+10V", "AVI", "GND"};
    const int pitch = 46, left = 356 - 11 * pitch / 2, top = 150;
    p.save();
    p.setPen(QPen(kFrame, 1.2));
    p.setBrush(QColor(60, 66, 76));
    p.drawRoundedRect(QRectF(left - 8, top, 11 * pitch + 16, 86), 5, 5);
    for (int i = 0; i < 11; ++i) {
        const QRectF cell(left + i * pitch + 3, top + 8, pitch - 6, 48);
        p.setBrush(QColor(210, 214, 220));
        p.drawRect(cell);
        const QPointF c = cell.center() - QPointF(0, 6);
        QRadialGradient g(c - QPointF(3, 3), 12);
        g.setColorAt(0, QColor(250, 250, 250));
        g.setColorAt(1, QColor(150, 154, 160));
        p.setBrush(g);
        p.drawEllipse(c, 11, 11);
        p.drawLine(c - QPointF(7, 0), c + QPointF(7, 0));
        p.setPen(QColor(235, 238, 242));
        p.drawText(QRectF(left + i * pitch, top + 58, pitch, 24), Qt::AlignCenter,
                   QString::fromLatin1(names[i]));
        p.setPen(QPen(kFrame, 1.2));
    }
    p.restore();
}

void PaintTerminalPicture(QPainter& p)
{
    Background(p, Translated("Panel", "变频器端子状态"));
    TerminalStrip(p);
    Box(p, QRect(230, 270, 250, 95), Translated("Panel", "端子状态"));
    Label(p, 236, 282, 52, Translated("Panel", "继电器"), Qt::AlignCenter);
    Label(p, 300, 282, 120, Translated("Panel", "数字输入"), Qt::AlignCenter);
    p.save();
    p.setPen(QPen(kFrame, 1.0, Qt::DashLine));
    p.drawLine(290, 290, 290, 355);
    p.restore();
    for (const Terminal& t : Terminals()) {
        Label(p, t.x - 8, 296, kLampSize + 16, QString::fromLatin1(t.name), Qt::AlignCenter);
        PaintLamp(p, Lamp{LampColour::Green, t.x, kTerminalLampY}, false);
    }
}

}  // namespace quillon
