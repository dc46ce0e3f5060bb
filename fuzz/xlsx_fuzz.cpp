// .xlsx reader: any bytes give a workbook or a reason; a workbook feeds both workbook imports.
#include "ExchangeFuzz.h"
#include "exchange/XlsxRead.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillon;
    QString error;
    if (const auto book = ReadXlsx(QByteArrayView(data, static_cast<qsizetype>(size)), error))
        fuzz::FeedWorkbook(*book);
    return 0;
}
