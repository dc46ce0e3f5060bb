#include "monitor/MonitorUi.h"

#include "monitor/GraphDlg.h"
#include "monitor/KeyPadDlg.h"
#include "monitor/MonitorControlDlg.h"
#include "monitor/MonitorStatusDlg.h"
#include "shell/CommandIds.h"
#include "shell/MainFrame.h"

namespace quillon {

MonitorContext MonitorContextOf(CMainFrame& frame)
{
    MonitorContext context;
    context.stations = frame.Session().m_stations;
    context.link = [&frame] { return frame.LinkSession().Link(); };
    context.linked = [&frame] { return frame.Session().m_bOnline != 0; };
    context.openGraph = [&frame](QWidget* owner) -> QWidget* {
        auto* graph = new CGraphDlg(MonitorContextOf(frame), frame.Session().m_graphSettings, owner);
        graph->setAttribute(Qt::WA_DeleteOnClose);
        return graph;
    };
    return context;
}

void InstallMonitorCommands(CMainFrame& frame)
{
    frame.SetCommandHandler(CmdId::Status, [&frame] {
        CMonitorStatusDlg dlg(MonitorContextOf(frame), 0, &frame);
        dlg.exec();
    });
    frame.SetCommandHandler(CmdId::GraphWatch, [&frame] {
        CGraphDlg dlg(MonitorContextOf(frame), frame.Session().m_graphSettings, &frame);
        dlg.exec();
    });
    frame.SetCommandHandler(CmdId::Control, [&frame] {
        CMonitorControlDlg dlg(MonitorContextOf(frame), 0, &frame);
        dlg.exec();
    });
    frame.SetCommandHandler(CmdId::KeyPad, [&frame] {
        CKeyPadDlg dlg(MonitorContextOf(frame), &frame);
        dlg.exec();
    });
}

}  // namespace quillon
