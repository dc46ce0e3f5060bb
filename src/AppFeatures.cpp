#include "AppFeatures.h"

#include "editing/EditorUi.h"
#include "exchange/ExchangeUi.h"
#include "exchange/PrintUi.h"
#include "monitor/MonitorUi.h"
#include "shell/FrameFeatures.h"
#include "transfer/TransferUi.h"

namespace quillon {

void RegisterAppFeatures(CFrameFeatures& features) {
    RegisterTransferCommands(features);
    features.Add([](CMainFrame& frame) { InstallPrintAndCompareCommands(frame); });
    features.Add([](CMainFrame& frame) { InstallMonitorCommands(frame); });
    features.Add([](CMainFrame& frame) { InstallExchangeCommands(frame); });
    RegisterEditorCommands(features);
}

}  // namespace quillon
