#include "AppFeatures.h"

#include "editing/EditorUi.h"
#include "exchange/ExchangeUi.h"
#include "exchange/PrintUi.h"
#include "link/FrameLogDlg.h"
#include "monitor/MonitorUi.h"
#include "shell/CommandIds.h"
#include "shell/FrameFeatures.h"
#include "shell/MainFrame.h"
#include "transfer/TransferUi.h"

namespace quillon {

void RegisterAppFeatures(CFrameFeatures& features) {
    RegisterTransferCommands(features);
    features.Add([](CMainFrame& frame) { InstallPrintAndCompareCommands(frame); });
    features.Add([](CMainFrame& frame) { InstallMonitorCommands(frame); });
    features.Add([](CMainFrame& frame) { InstallExchangeCommands(frame); });
    RegisterEditorCommands(features);
    features.Add([](CMainFrame& frame) {
        frame.SetCommandHandler(CmdId::FrameLog, [&frame] { CFrameLogDlg::ShowFor(&frame); });
    });
}

}  // namespace quillon
