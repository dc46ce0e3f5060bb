// IntialParam.DAT reader and overlay: any table gives values or the range failure.
#include "base/TextFile.h"
#include "params/CatalogueReader.h"
#include "params/Overlays.h"

#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillon;
    const auto table = ParseInitialTable(SplitTextLines(QByteArray(reinterpret_cast<const char*>(data), size)));
    std::vector<ParamGroup> groups(kGroupCount);
    for (auto& g : groups) g.m_rows.resize(30);
    for (int model : {201, 1102}) {
        try {
            ApplyInitialTableTo(groups, table, model, true);
        } catch (const std::out_of_range&) {
        }
    }
    return 0;
}
