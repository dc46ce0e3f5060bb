#pragma once
// The monitoring commands of the main window: Status opens the status monitor, Control the
// control panel and KeyPad the virtual keypad, each as a modal dialog on the session's link and
// stations.

namespace quillon {

class CMainFrame;
struct MonitorContext;

void InstallMonitorCommands(CMainFrame& frame);
// What the monitoring windows get of `frame`'s session now.
MonitorContext MonitorContextOf(CMainFrame& frame);

}  // namespace quillon
