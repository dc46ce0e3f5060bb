// kcomfile.ini reader.
#include "base/CommSettings.h"
#include "base/Globals.h"
#include "base/TextFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    quillon::ResetGlobals();
    quillon::ApplyCommSettingsLines(
        quillon::SplitTextLines(QByteArray(reinterpret_cast<const char*>(data), size)));
    return 0;
}
