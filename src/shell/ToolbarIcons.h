#pragma once
// The tool bar's pictures, 21 x 22 pixels each, drawn by the program itself.

#include <QPixmap>
#include <QSize>

namespace quillon {

inline constexpr QSize kToolbarImageSize{21, 22};

// The picture of a tool-bar command; a null pixmap for a command without one.
QPixmap ToolbarPixmap(int commandId);

}  // namespace quillon
