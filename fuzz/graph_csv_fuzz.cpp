// Graph CSV import. What imports exports again and imports to the same store.
#include "ExchangeFuzz.h"
#include "exchange/CsvText.h"
#include "exchange/GraphData.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillon;
    fuzz::FuzzDocument();  // the quiet prompt
    GraphData first;
    if (!ImportGraphCsv(SplitCsvLines(QByteArrayView(data, static_cast<qsizetype>(size))), first)) return 0;
    GraphData again;
    if (!ImportGraphCsv(SplitCsvLines(ExportGraphCsv(first)), again)) __builtin_trap();
    if (again.names != first.names || again.minimum != first.minimum ||
        again.maximum != first.maximum || again.samples.size() != first.samples.size())
        __builtin_trap();
    for (size_t i = 0; i < first.samples.size(); ++i)
        if (again.samples[i].values != first.samples[i].values || again.samples[i].time != first.samples[i].time)
            __builtin_trap();
    return 0;
}
