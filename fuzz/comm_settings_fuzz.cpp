// kcomfile.ini reader.
#include "params/TextFile.h"
#include "shell/CommSettings.h"
#include "shell/Globals.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    quillon::ResetGlobals();
    quillon::ApplyCommSettingsLines(
        quillon::SplitTextLines(QByteArray(reinterpret_cast<const char*>(data), size)));
    return 0;
}
