// R770MOTORPARAM.DAT reader.
#include "base/TextFile.h"
#include "params/CatalogueReader.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    quillon::ParseMotorList(
        quillon::SplitTextLines(QByteArray(reinterpret_cast<const char*>(data), size)));
    return 0;
}
