// PARAM.DAT reader: any bytes give groups or the range failure, never a crash.
#include "base/TextFile.h"
#include "params/CatalogueReader.h"

#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto lines = quillon::SplitTextLines(QByteArray(reinterpret_cast<const char*>(data), size));
    std::vector<quillon::ParamGroup> groups;
    quillon::FlagTable exists{};
    try {
        quillon::ParseCatalogue(lines, groups, exists);
    } catch (const std::out_of_range&) {
    }
    return 0;
}
