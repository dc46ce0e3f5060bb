#pragma once
// Where the scope puts things, without a widget: the face and plot rectangles, the pixel of a
// sample, the decimated line of a curve and the cursor's readout.
//
// Rectangles follow the drawing convention of the face: `bottom` and `right` are the edge lines,
// top + height and left + width.

#include <QPoint>
#include <QRect>

#include <deque>
#include <optional>
#include <vector>

namespace quillon {

struct ScopeLayout {
    QRect face;    // the client area less 3 left, 2 top, 4 right, 60 bottom
    QRect plot;    // the face less 50 left, 5 top, 20 right, 25 bottom
    QRect boxRow;  // the strip from 5 to 56 pixels below the face
};
ScopeLayout LayoutScope(const QRect& client);

// The plot's frame for one curve: its oldest tick time sits at the left edge and the window's
// span fills the width.
struct CurveFrame {
    QRect plot;
    double t0 = 0.0;
    double spanSeconds = 60.0;

    int Left() const { return plot.x(); }
    int Top() const { return plot.y(); }
    int Right() const { return plot.x() + plot.width(); }
    int Bottom() const { return plot.y() + plot.height(); }
    int X(double t) const;
    // A sample's y, kept off the edge lines; far-off values are held where clipping hides them.
    int Y(double sample) const;
};

// The curve's line with at most two points per pixel column: a column of several samples becomes
// one stroke from their lowest to their highest, so the cost of drawing stays with the plot's
// width however many samples the window holds.
void CurvePolyline(const std::deque<double>& times, const std::deque<double>& samples,
                   const CurveFrame& frame, std::vector<QPoint>& out);

// The sample the cursor at `cursorX` reads: an exact hit takes that point, otherwise the nearer
// of the two around it, a tie to the right one. Nothing for fewer than two points or beyond the
// last one.
std::optional<int> ReadoutIndex(const std::deque<double>& times, const CurveFrame& frame,
                                int cursorX);

}  // namespace quillon
