#include "shell/ToolbarIcons.h"

#include "shell/CommandIds.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <array>

namespace quillon {
namespace {

using Paint = void (*)(QPainter&);

const QColor kInk(40, 40, 40);
const QColor kPaper(255, 255, 255);
const QColor kBlue(30, 90, 200);
const QColor kGreen(20, 150, 60);
const QColor kRed(200, 40, 40);
const QColor kYellow(240, 200, 60);
const QColor kGrey(150, 150, 150);

void Page(QPainter& p, QRectF r) {
    QPainterPath path;
    path.moveTo(r.left(), r.top());
    path.lineTo(r.right() - 4, r.top());
    path.lineTo(r.right(), r.top() + 4);
    path.lineTo(r.right(), r.bottom());
    path.lineTo(r.left(), r.bottom());
    path.closeSubpath();
    p.setPen(QPen(kInk, 1));
    p.setBrush(kPaper);
    p.drawPath(path);
    p.drawLine(QPointF(r.right() - 4, r.top()), QPointF(r.right() - 4, r.top() + 4));
    p.drawLine(QPointF(r.right() - 4, r.top() + 4), QPointF(r.right(), r.top() + 4));
}

void Arrow(QPainter& p, QPointF from, QPointF to, const QColor& colour) {
    p.setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(from, to);
    const QPointF d = (to - from) / std::max(1.0, std::hypot(to.x() - from.x(), to.y() - from.y()));
    const QPointF n(-d.y(), d.x());
    p.setBrush(colour);
    p.setPen(Qt::NoPen);
    p.drawPolygon(QPolygonF{to + d * 2, to - d * 3 + n * 3, to - d * 3 - n * 3});
}

// A drive: the inverter's case with its display.
void Drive(QPainter& p, QRectF r) {
    p.setPen(QPen(kInk, 1));
    p.setBrush(QColor(90, 110, 140));
    p.drawRoundedRect(r, 1.5, 1.5);
    p.setBrush(QColor(120, 230, 120));
    p.drawRect(QRectF(r.left() + 2, r.top() + 2, r.width() - 4, 3));
}

void PaintNew(QPainter& p) { Page(p, QRectF(4.5, 2.5, 12, 17)); }

void PaintOpen(QPainter& p) {
    p.setPen(QPen(kInk, 1));
    p.setBrush(kYellow.darker(115));
    p.drawRect(QRectF(2.5, 6.5, 15, 11));
    p.setBrush(kYellow);
    p.drawPolygon(QPolygonF{{2.5, 17.5}, {6.5, 10.5}, {19.5, 10.5}, {15.5, 17.5}});
    Arrow(p, {12, 5}, {17, 3}, kGreen);
}

void PaintSave(QPainter& p) {
    p.setPen(QPen(kInk, 1));
    p.setBrush(kBlue);
    p.drawRect(QRectF(3.5, 3.5, 14, 15));
    p.setBrush(kPaper);
    p.drawRect(QRectF(6.5, 3.5, 8, 6));
    p.setBrush(kGrey);
    p.drawRect(QRectF(6.5, 12.5, 8, 6));
}

void PaintPrint(QPainter& p) {
    Page(p, QRectF(6.5, 2.5, 8, 7));
    p.setPen(QPen(kInk, 1));
    p.setBrush(kGrey);
    p.drawRect(QRectF(2.5, 9.5, 16, 7));
    p.setBrush(kPaper);
    p.drawRect(QRectF(5.5, 14.5, 10, 5));
    p.setBrush(kGreen);
    p.drawEllipse(QRectF(15, 11, 2, 2));
}

void PaintPreview(QPainter& p) {
    Page(p, QRectF(2.5, 2.5, 11, 15));
    p.setPen(QPen(kInk, 2));
    p.drawLine(QPointF(14, 15), QPointF(19, 20));
    p.setPen(QPen(kInk, 1));
    p.setBrush(QColor(200, 230, 255));
    p.drawEllipse(QPointF(12, 12), 4, 4);
}

void PaintConnect(QPainter& p) {
    Drive(p, QRectF(12.5, 4.5, 7, 13));
    p.setPen(QPen(kInk, 1));
    p.setBrush(kGrey);
    p.drawRect(QRectF(1.5, 8.5, 5, 5));
    p.setPen(QPen(kGreen, 2));
    p.drawLine(QPointF(7, 11), QPointF(12, 11));
}

void PaintRead(QPainter& p) {
    Drive(p, QRectF(12.5, 3.5, 7, 15));
    Page(p, QRectF(1.5, 7.5, 7, 10));
    Arrow(p, {12, 6}, {6, 6}, kBlue);
}

void PaintWrite(QPainter& p) {
    Drive(p, QRectF(12.5, 3.5, 7, 15));
    Page(p, QRectF(1.5, 7.5, 7, 10));
    Arrow(p, {6, 6}, {12, 6}, kRed);
}

void PaintCompare(QPainter& p) {
    Page(p, QRectF(1.5, 3.5, 8, 12));
    Page(p, QRectF(11.5, 6.5, 8, 12));
    p.setPen(QPen(kRed, 1.5));
    p.drawLine(QPointF(8, 18), QPointF(12, 18));
    p.drawLine(QPointF(8, 20), QPointF(12, 20));
}

void PaintGraphWatch(QPainter& p) {
    p.setPen(QPen(kInk, 1));
    p.setBrush(QColor(10, 30, 10));
    p.drawRect(QRectF(1.5, 3.5, 18, 15));
    QPainterPath wave;
    wave.moveTo(3, 11);
    for (int x = 3; x <= 18; ++x) wave.lineTo(x, 11 - 5 * std::sin((x - 3) * 0.55));
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(80, 255, 80), 1.2));
    p.drawPath(wave);
}

void PaintKeyPad(QPainter& p) {
    p.setPen(QPen(kInk, 1));
    p.setBrush(QColor(210, 210, 210));
    p.drawRoundedRect(QRectF(3.5, 1.5, 14, 19), 2, 2);
    p.setBrush(QColor(120, 230, 120));
    p.drawRect(QRectF(5.5, 3.5, 10, 4));
    p.setBrush(kGrey);
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) p.drawRect(QRectF(5.5 + c * 3.5, 9.5 + r * 3.5, 2.5, 2.5));
}

void PaintControl(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(kGreen);
    p.drawPolygon(QPolygonF{{2, 4}, {10, 10}, {2, 16}});
    p.setBrush(kRed);
    p.drawRect(QRectF(12, 6, 8, 8));
}

void PaintStatus(QPainter& p) {
    p.setPen(QPen(kInk, 1));
    p.setBrush(kPaper);
    p.drawPie(QRectF(1.5, 4.5, 18, 18), 0, 180 * 16);
    p.setPen(QPen(kRed, 1.5));
    p.drawLine(QPointF(10.5, 13.5), QPointF(15, 8));
    p.setPen(QPen(kInk, 1));
    for (int a = 20; a <= 160; a += 35) {
        const double rad = a * M_PI / 180;
        p.drawLine(QPointF(10.5 + 7 * std::cos(rad), 13.5 - 7 * std::sin(rad)),
                   QPointF(10.5 + 9 * std::cos(rad), 13.5 - 9 * std::sin(rad)));
    }
}

void PaintParamSelect(QPainter& p) {
    Page(p, QRectF(3.5, 1.5, 14, 19));
    p.setPen(QPen(kGreen, 1.5));
    for (int i = 0; i < 3; ++i) {
        const double y = 6 + i * 5;
        p.drawLine(QPointF(6, y), QPointF(7.5, y + 1.5));
        p.drawLine(QPointF(7.5, y + 1.5), QPointF(10, y - 1.5));
    }
    p.setPen(QPen(kInk, 1));
    for (int i = 0; i < 3; ++i) p.drawLine(QPointF(11, 6.5 + i * 5), QPointF(15, 6.5 + i * 5));
}

void PaintAbout(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(kBlue);
    p.drawEllipse(QRectF(2, 3, 17, 17));
    p.setPen(kPaper);
    QFont font = p.font();
    font.setBold(true);
    font.setPixelSize(13);
    p.setFont(font);
    p.drawText(QRectF(2, 3, 17, 17), Qt::AlignCenter, QStringLiteral("?"));
}

struct IconEntry {
    int id;
    Paint paint;
};

const std::array kIcons{
    IconEntry{CmdId::New, PaintNew},           IconEntry{CmdId::Open, PaintOpen},
    IconEntry{CmdId::Save, PaintSave},         IconEntry{CmdId::Print, PaintPrint},
    IconEntry{CmdId::PrintPreview, PaintPreview}, IconEntry{CmdId::Connect, PaintConnect},
    IconEntry{CmdId::Read, PaintRead},         IconEntry{CmdId::Write, PaintWrite},
    IconEntry{CmdId::Compare, PaintCompare},   IconEntry{CmdId::GraphWatch, PaintGraphWatch},
    IconEntry{CmdId::KeyPad, PaintKeyPad},     IconEntry{CmdId::Control, PaintControl},
    IconEntry{CmdId::Status, PaintStatus},     IconEntry{CmdId::ParamSelect, PaintParamSelect},
    IconEntry{CmdId::About, PaintAbout},
};

}  // namespace

QPixmap ToolbarPixmap(int commandId) {
    for (const IconEntry& e : kIcons) {
        if (e.id != commandId) continue;
        QPixmap pixmap(kToolbarImageSize);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        e.paint(painter);
        return pixmap;
    }
    return {};
}

}  // namespace quillon
