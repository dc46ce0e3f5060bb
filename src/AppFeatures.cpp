#include "AppFeatures.h"

#include "exchange/PrintUi.h"
#include "monitor/MonitorUi.h"
#include "shell/FrameFeatures.h"
#include "transfer/TransferUi.h"

namespace quillon {

void RegisterAppFeatures(CFrameFeatures& features) {
    RegisterTransferCommands(features);
    features.Add([](CMainFrame& frame) { InstallPrintAndCompareCommands(frame); });
    features.Add([](CMainFrame& frame) { InstallMonitorCommands(frame); });
}

}  // namespace quillon
