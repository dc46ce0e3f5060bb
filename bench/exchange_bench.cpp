// exchange_bench: the parameter workbook of all 15 groups written and read back, and a graph CSV
// of 60,000 samples read, each timed over several runs (best and mean, milliseconds).
//   exchange_bench [DATA_DIR] 2>/dev/null   (DATA_DIR defaults to the program's directory; the
// imports' own messages go to stderr)

#include "base/Globals.h"
#include "exchange/CsvText.h"
#include "exchange/GraphData.h"
#include "exchange/ParamExchange.h"
#include "exchange/ParamWorkbook.h"
#include "params/M330Doc.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <functional>

using namespace quillon;

namespace {

void Time(const char* what, int runs, const std::function<bool()>& work) {
    double best = 1e9, total = 0;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        if (!work()) {
            std::printf("%s: FAILED\n", what);
            return;
        }
        const double ms = static_cast<double>(t.nsecsElapsed()) / 1e6;
        best = std::min(best, ms);
        total += ms;
    }
    std::printf("%-44s best %7.2f ms  mean %7.2f ms  (%d runs)\n", what, best, total / runs, runs);
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    g_strAppDir = argc > 1 ? QString::fromLocal8Bit(argv[1]) + u'/' : app.applicationDirPath() + u'/';
    SessionState session;
    session.m_strAppDir = g_strAppDir;
    session.m_nModelCode = 402;
    session.m_strModelName = QStringLiteral("R770-402-Kxx");
    CM330Doc doc(session);
    doc.OnNewDocument();
    QTemporaryDir dir;
    const QString xlsx = dir.filePath(QStringLiteral("all.xlsx"));
    QString error;
    Time("export 15 groups to .xlsx", 20, [&] {
        return WriteParamFile(doc, ExportFormat::Excel, xlsx, QDateTime::currentDateTime(), error);
    });
    Time("import 15 groups from .xlsx (read + apply)", 20, [&] {
        const auto book = ReadWorkbookFile(xlsx, error);
        return book && ImportParamWorkbook(doc, *book);
    });

    GraphData data;
    for (int i = 0; i < 60000; ++i) {
        const int ms = i * 100;
        data.AddSample({QString::number(i % 5000 / 100.0, 'f', 2), QString::number(i % 70 / 10.0, 'f', 1),
                        QString::number(i % 3), QStringLiteral("0")},
                       QStringLiteral("%1:%2:%3.%4")
                           .arg(ms / 3600000 % 24, 2, 10, QLatin1Char('0'))
                           .arg(ms / 60000 % 60, 2, 10, QLatin1Char('0'))
                           .arg(ms / 1000 % 60, 2, 10, QLatin1Char('0'))
                           .arg(ms % 1000, 3, 10, QLatin1Char('0')));
    }
    const QString csv = dir.filePath(QStringLiteral("graph.csv"));
    WriteWholeFile(csv, ExportGraphCsv(data));
    Time("import graph CSV of 60,000 samples", 10, [&] {
        QFile file(csv);
        if (!file.open(QIODevice::ReadOnly)) return false;
        GraphData back;
        return ImportGraphCsv(SplitCsvLines(file.readAll()), back) && back.samples.size() == 60000;
    });
    return 0;
}
