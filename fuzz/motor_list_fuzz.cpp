// R770MOTORPARAM.DAT reader.
#include "params/CatalogueReader.h"
#include "params/TextFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    quillon::ParseMotorList(
        quillon::SplitTextLines(QByteArray(reinterpret_cast<const char*>(data), size)));
    return 0;
}
