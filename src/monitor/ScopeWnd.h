#pragma once
// The scope of the graph watch: a dark face with a grid, the four curves, their value boxes and
// axis labels, the time axis, two arrows that change the time per division, and a cursor that
// reads the curves. It only paints the recorder and forwards the mouse; a right click and keys
// go on to the window.
//
// The 10 ms repaint tick redraws the plot only when something in it changed (a sample, the
// scale, the time per division, the cursor); each curve is drawn decimated to its pixel columns.

#include "monitor/GraphRecorder.h"
#include "monitor/ScopeGeometry.h"

#include <QFont>
#include <QPolygon>
#include <QWidget>

class QTimer;

namespace quillon {

class CScopeWnd final : public QWidget {
    Q_OBJECT
public:
    CScopeWnd(const CGraphRecorder& recorder, QWidget* parent);

    QTimer* RepaintTimer() const { return m_repaint; }
    QPoint CursorPos() const { return m_cursor; }
    // The whole face at the widget's size; the benchmark draws it into an image.
    void PaintScope(QPainter& p);
    // A sample came or Start cleared the store: the value boxes and the time axis change too.
    void OnSample() { update(); }

    // Clicks on the arrows: the recorder's time per division changes.
    std::function<void(bool up)> onArrow;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void OnRepaintTick();
    void PaintPlot(QPainter& p, const ScopeLayout& l);
    struct Readout {
        QPoint point;
        int curve;
        double value;
    };
    void PaintReadouts(QPainter& p, const QRect& plot, const std::vector<Readout>& readouts);
    void PaintArrows(QPainter& p);
    void PaintBoxes(QPainter& p, const ScopeLayout& l);
    void PaintAxes(QPainter& p, const QRect& plot);
    void BuildArrows(const ScopeLayout& l);

    const CGraphRecorder& m_recorder;
    QTimer* m_repaint;
    QPoint m_cursor{0, 0};
    int m_hotArrow = -1;
    QPolygon m_arrowUp;
    QPolygon m_arrowDown;
    unsigned m_nPaintedVersion = ~0u;
    QPoint m_paintedCursor{-1, -1};
    std::vector<QPoint> m_line;  // reused between paints
    QFont m_boxFont;
    QFont m_readoutFont;
};

// The colour of curve `c`: yellow, green, red, blue.
QColor CurveColour(int c);
// "Yellow Curve" ... "Blue Curve".
QString CurveName(int c);

}  // namespace quillon
