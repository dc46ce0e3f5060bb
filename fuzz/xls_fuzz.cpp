// .xls path: freexl reads from a file, so each input is written to one scratch file first; a
// workbook it gives feeds both workbook imports as in the .xlsx target.
#include "ExchangeFuzz.h"
#include "exchange/XlsRead.h"

#include <QFile>
#include <QTemporaryDir>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillon;
    static QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("input.xls"));
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) __builtin_trap();
        file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    }
    QString error;
    if (const auto book = ReadXls(path, error)) fuzz::FeedWorkbook(*book);
    return 0;
}
