// R770.SPE reader.
#include "params/ModelSpec.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto spec = quillon::ParseModelSpec(QByteArray(reinterpret_cast<const char*>(data), size));
    quillon::FindModelByPrefix(spec.names, spec.names.isEmpty() ? QString() : spec.names.first());
    return 0;
}
