#include "AppFeatures.h"

#include "exchange/PrintUi.h"
#include "shell/FrameFeatures.h"
#include "transfer/TransferUi.h"

namespace quillon {

void RegisterAppFeatures(CFrameFeatures& features) {
    RegisterTransferCommands(features);
    features.Add([](CMainFrame& frame) { InstallPrintAndCompareCommands(frame); });
}

}  // namespace quillon
