// Parameter CSV import. Any bytes reset the document and import, stop at a bad line, or run past
// the last group into the range failure; by code they never leave the rows that exist.
#include "ExchangeFuzz.h"
#include "exchange/CsvText.h"
#include "exchange/ParamCsv.h"

#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillon;
    CM330Doc& doc = fuzz::FuzzDocument();
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const ImportMatch match = size > 0 && (data[0] & 1) ? ImportMatch::ByCode : ImportMatch::ByPosition;
    try {
        ImportParamCsv(doc, SplitCsvLines(bytes), match);
    } catch (const std::out_of_range&) {
        if (match == ImportMatch::ByCode) __builtin_trap();
    }
    return 0;
}
