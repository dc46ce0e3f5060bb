#pragma once
// The pictures of the status monitor's two pages, drawn with QPainter in the pages' own pixel
// coordinates (711 by 435): frames, captions and units, and the dark lamps, over which the pages
// paint the lit lamps, the values and the fault texts at fixed positions. Being drawn rather than
// stored, they stay sharp on any screen.

#include "monitor/StatusReadout.h"

#include <QPoint>
#include <QSize>

class QColor;
class QPainter;
class QString;

namespace quillon {

inline constexpr QSize kPanelPictureSize{711, 435};

void PaintStatusPicture(QPainter& p);
void PaintTerminalPicture(QPainter& p);

// One lamp, lit in its colour or dark.
void PaintLamp(QPainter& p, const Lamp& lamp, bool lit);

// Text in `colour` in a rectangle as large as the text that begins at `at`, vertically centred.
void PaintTextAt(QPainter& p, QPoint at, const QString& text, const QColor& colour);

}  // namespace quillon
