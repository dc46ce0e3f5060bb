#pragma once
// The main frame's Import Parameters and Export Parameters commands, and the scope's picture.

class QWidget;

namespace quillon {

class CMainFrame;

// Registers the handlers of Import and Export with `frame`.
void InstallExchangeCommands(CMainFrame& frame);

// "Save" of the graph window: asks for a file with the filter "(*.bmp)" (a name typed without an
// extension gets "bin", as it always has), and writes the widget as it stands, grabbed by the
// widget itself so it works offscreen and under every window system. "The file hasn't exist!"
// when it can't be written. False when cancelled or failed.
bool SaveWidgetPicture(QWidget& widget);

}  // namespace quillon
