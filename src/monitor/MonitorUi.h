#pragma once
// The monitoring commands of the main window: Status opens the status monitor, Control the
// control panel, KeyPad the virtual keypad and Graph Watch the graph, each as a modal dialog on
// the session's link and stations; the control panel's "Graph" button opens the graph as a
// window of its own.

namespace quillon {

class CMainFrame;
struct MonitorContext;

void InstallMonitorCommands(CMainFrame& frame);
// What the monitoring windows get of `frame`'s session now.
MonitorContext MonitorContextOf(CMainFrame& frame);

}  // namespace quillon
