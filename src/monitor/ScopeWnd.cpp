#include "monitor/ScopeWnd.h"

#include "base/ErrorReport.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>

namespace quillon {
namespace {

const QColor kFace(0, 0, 51);
const QColor kPlot(34, 34, 68);
const QColor kGrid(192, 192, 192);
const QColor kEdgeDark(85, 85, 85);

QString Fixed2(double v) { return QString::number(v, 'f', 2); }

// A sunken edge: dark above and left, white below and right.
void SunkenEdge(QPainter& p, const QRect& r)
{
    p.setPen(kEdgeDark);
    p.drawLine(r.topLeft(), r.topRight());
    p.drawLine(r.topLeft(), r.bottomLeft());
    p.setPen(Qt::white);
    p.drawLine(r.bottomLeft(), r.bottomRight());
    p.drawLine(r.topRight(), r.bottomRight());
}

}  // namespace

QColor CurveColour(int c)
{
    static const QColor kColours[kGraphChannels] = {
        QColor(255, 230, 40), QColor(0, 255, 0), QColor(255, 0, 0), QColor(0, 255, 255)};
    return kColours[c];
}

QString CurveName(int c)
{
    static const char* const kNames[kGraphChannels] = {"Yellow Curve", "Green Curve",
                                                       "Red Curve", "Blue Curve"};
    return QString::fromLatin1(kNames[c]);
}

CScopeWnd::CScopeWnd(const CGraphRecorder& recorder, QWidget* parent)
    : QWidget(parent), m_recorder(recorder), m_repaint(new QTimer(this))
{
    setObjectName(QStringLiteral("ScopeWnd"));
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_boxFont = QFont(QStringLiteral("FixedSys"), 12);
    m_boxFont.setStyleHint(QFont::Monospace);
    m_boxFont.setPixelSize(12);
    m_readoutFont = QFont(QStringLiteral("Arial"));
    m_readoutFont.setStyleHint(QFont::SansSerif);
    m_readoutFont.setPixelSize(15);
    m_readoutFont.setWeight(QFont::Light);
    m_repaint->setInterval(kScopeRepaintMs);
    connect(m_repaint, &QTimer::timeout, this, Guarded([this] { OnRepaintTick(); }));
    m_repaint->start();
}

void CScopeWnd::OnRepaintTick()
{
    if (m_recorder.Version() == m_nPaintedVersion && m_cursor == m_paintedCursor)
        return;
    update(LayoutScope(rect()).plot);
}

void CScopeWnd::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    PaintScope(p);
}

void CScopeWnd::PaintScope(QPainter& p)
{
    const ScopeLayout l = LayoutScope(rect());
    BuildArrows(l);
    p.fillRect(rect(), kFace);
    PaintPlot(p, l);
    PaintArrows(p);
    PaintBoxes(p, l);
    PaintAxes(p, l.plot);
    m_nPaintedVersion = m_recorder.Version();
    m_paintedCursor = m_cursor;
}

void CScopeWnd::PaintPlot(QPainter& p, const ScopeLayout& l)
{
    const QRect& plot = l.plot;
    p.fillRect(plot, kPlot);
    SunkenEdge(p, plot);

    p.save();
    p.setClipRect(plot.adjusted(2, 2, -2, -2));
    p.setPen(kGrid);
    const int bottom = plot.y() + plot.height();
    for (int k = 1; k < kGraphDivisions; ++k) {
        const int y = bottom - plot.height() * k / 4;
        const int x = plot.x() + plot.width() * k / 4;
        p.drawLine(plot.x(), y, plot.x() + plot.width(), y);
        p.drawLine(x, plot.y(), x, bottom);
    }

    const CGraphStore& store = m_recorder.Store();
    std::vector<Readout> readouts;
    for (int c = 0; c < kGraphChannels; ++c) {
        if (!CurveShown(m_recorder.Settings().channelName[c]) || store.curveTimes[c].empty())
            continue;
        CurveFrame frame{plot, store.curveTimes[c].front(), m_recorder.WindowSeconds()};
        CurvePolyline(store.curveTimes[c], store.curveValues[c], frame, m_line);
        p.setPen(CurveColour(c));
        p.drawPolyline(m_line.data(), static_cast<int>(m_line.size()));
        if (!plot.contains(m_cursor))
            continue;
        if (const auto i = ReadoutIndex(store.curveTimes[c], frame, m_cursor.x())) {
            const double sample = store.curveValues[c][*i];
            readouts.push_back({QPoint(frame.X(store.curveTimes[c][*i]), frame.Y(sample)), c,
                                m_recorder.ChannelValue(c, sample)});
        }
    }
    if (plot.contains(m_cursor)) {
        p.setPen(Qt::white);
        p.drawLine(m_cursor.x(), plot.y(), m_cursor.x(), bottom);
    }
    p.restore();
    PaintReadouts(p, plot, readouts);
}

void CScopeWnd::PaintReadouts(QPainter& p, const QRect& plot, const std::vector<Readout>& readouts)
{
    p.setFont(m_readoutFont);
    const QFontMetrics fm(m_readoutFont);
    const int h = fm.height();
    const int right = plot.x() + plot.width(), bottom = plot.y() + plot.height();
    std::vector<QRect> placed;
    for (const Readout& r : readouts) {
        const QPoint pt = r.point;
        if (!plot.contains(pt))
            continue;
        const QString text = Fixed2(r.value);
        const int w = fm.horizontalAdvance(text);
        int x = pt.x() + 1 + w > right ? pt.x() - w : pt.x() + 1;
        const int y = pt.y() + 14 >= bottom ? pt.y() - h : pt.y();
        // Clear of every earlier readout near the same height: one text width (and a small gap)
        // further right.
        for (int guard = 0; guard < kGraphChannels; ++guard) {
            QRect box(x, y, w, h);
            const bool clash = std::any_of(placed.begin(), placed.end(), [&](const QRect& r) {
                return std::abs(r.y() - y) < h - 4 && r.intersects(box);
            });
            if (!clash)
                break;
            x += w + 4;
        }
        placed.emplace_back(x, y, w, h);
        p.setPen(CurveColour(r.curve));
        p.drawText(QRect(x, y, w, h), Qt::AlignLeft | Qt::AlignTop, text);
    }
}

void CScopeWnd::BuildArrows(const ScopeLayout& l)
{
    const int r = l.plot.x() + l.plot.width();
    const int m = l.face.y() + l.face.height() / 2;
    m_arrowUp = QPolygon({QPoint(r + 6, m - 14), QPoint(r + 6, m - 2), QPoint(r + 18, m - 8)});
    m_arrowDown = QPolygon({QPoint(r + 18, m + 2), QPoint(r + 18, m + 14), QPoint(r + 6, m + 8)});
}

void CScopeWnd::PaintArrows(QPainter& p)
{
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(m_hotArrow == 0 ? QColor(0, 255, 0) : QColor(211, 211, 211));
    p.drawPolygon(m_arrowUp);
    p.setBrush(m_hotArrow == 1 ? QColor(0, 255, 0) : QColor(211, 211, 211));
    p.drawPolygon(m_arrowDown);
    p.restore();
}

void CScopeWnd::PaintBoxes(QPainter& p, const ScopeLayout& l)
{
    p.setFont(m_boxFont);
    const QFontMetrics fm(m_boxFont);
    const int h = fm.height() + 4;
    const int middle = l.boxRow.y() + l.boxRow.height() / 2;
    const int column = l.boxRow.width() / 2;
    for (int c = 0; c < kGraphChannels; ++c) {
        const int rowCentre = c < 2 ? middle - 15 : middle + 11;
        const int x0 = l.boxRow.x() + (c % 2) * column + 10;
        const int nameWidth = fm.horizontalAdvance(CurveName(c)) + 10;
        const QRect name(x0, rowCentre - h / 2, nameWidth, h);
        const QRect box(x0 + nameWidth, rowCentre - h / 2, std::min(110, column - nameWidth - 20), h);
        p.setPen(CurveColour(c));
        p.drawText(name, Qt::AlignCenter, CurveName(c));
        p.fillRect(box, Qt::black);
        SunkenEdge(p, box);
        p.setPen(CurveColour(c));
        p.drawText(box.adjusted(3, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                   Fixed2(m_recorder.LastValue(c)));
    }
}

void CScopeWnd::PaintAxes(QPainter& p, const QRect& plot)
{
    p.setFont(m_boxFont);
    const QFontMetrics fm(m_boxFont);
    const int h = fm.height();
    const int top = plot.y(), bottom = plot.y() + plot.height(), q = plot.height() / 4;
    for (int c = 0; c < kGraphChannels; ++c) {
        const int ys[kAxisLabels] = {bottom - 10 * c, bottom - q + 10 - 10 * c,
                                     top + 2 * q + 20 - 10 * c, top + q + 30 - 10 * c,
                                     top + 37 - 10 * c};
        p.setPen(CurveColour(c));
        for (int k = 0; k < kAxisLabels; ++k)
            p.drawText(QRect(0, ys[k] - h / 2, plot.x() - 2, h), Qt::AlignRight | Qt::AlignVCenter,
                       m_recorder.AxisLabel(c, k));
    }
    const auto labels = m_recorder.TimeAxis(MsOfDay(QTime::currentTime()));
    p.setPen(Qt::white);
    for (int k = 0; k < kAxisLabels; ++k) {
        const int w = fm.horizontalAdvance(labels[k]);
        const int x = plot.x() + plot.width() * k / 4;
        const int left = k < kAxisLabels - 1 ? x - w / 2 : x - w;
        p.drawText(QRect(left, bottom + 2, w, h), Qt::AlignLeft | Qt::AlignTop, labels[k]);
    }
}

void CScopeWnd::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    const int hot = m_arrowUp.containsPoint(pos, Qt::OddEvenFill)     ? 0
                    : m_arrowDown.containsPoint(pos, Qt::OddEvenFill) ? 1
                                                                      : -1;
    if (hot != m_hotArrow) {
        m_hotArrow = hot;
        update(m_arrowUp.boundingRect().united(m_arrowDown.boundingRect()));
    }
    if (LayoutScope(rect()).plot.contains(pos))
        m_cursor = pos;
}

void CScopeWnd::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QPoint pos = event->position().toPoint();
    const bool up = m_arrowUp.containsPoint(pos, Qt::OddEvenFill);
    if ((up || m_arrowDown.containsPoint(pos, Qt::OddEvenFill)) && onArrow) {
        onArrow(up);
        update();
    }
}

void CScopeWnd::contextMenuEvent(QContextMenuEvent* event) { event->ignore(); }

}  // namespace quillon
