// editor_bench: the parameter editor built with all 33 pages and shown on group 00, then opened
// on each of the 15 groups in turn (median of 20 runs each, milliseconds), and the resident
// memory before and after 100 open/close cycles.
//   QT_QPA_PLATFORM=offscreen editor_bench [DATA_DIR]

#include "base/Globals.h"
#include "base/SessionState.h"
#include "editing/EditorTable.h"
#include "editing/ParamEditorDlg.h"
#include "params/M330Doc.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace quillon;

namespace {

double Median(const std::function<void()>& work, int runs) {
    std::vector<double> ms;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        work();
        ms.push_back(static_cast<double>(t.nsecsElapsed()) / 1e6);
    }
    std::sort(ms.begin(), ms.end());
    return ms[ms.size() / 2];
}

long RssKb() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return -1;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').front().toLong();
    return -1;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    // The offscreen platform's notes on window sizes would drown the figures.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    g_strAppDir = argc > 1 ? QString::fromLocal8Bit(argv[1]) + u'/' : app.applicationDirPath() + u'/';
    SessionState session;
    session.m_strAppDir = g_strAppDir;
    session.m_nModelCode = 402;
    session.m_strModelName = QStringLiteral("R770-402-Kxx");
    CM330Doc doc(session);
    doc.OnNewDocument();
    auto open = [&](int group) {
        CParamEditorDlg dlg(EditorEnvironment{session, doc, [] { return nullptr; }, {}});
        dlg.m_nGroupIndex = group;
        dlg.OnInitDialog();
        dlg.show();
        QApplication::processEvents();
        dlg.reject();
    };
    open(0);  // fonts, styles and the parameter table loaded once
    const double first = Median([&] { open(0); }, 20);
    const double all = Median([&] {
        for (int g = 0; g < kEditorGroups; ++g) open(g);
    }, 20);
    std::printf("build with 33 pages and show group 00   median %7.2f ms (20 runs, limit 100)\n", first);
    std::printf("open each of the 15 groups in turn      median %7.2f ms (20 runs, limit 1000)\n", all);
    for (int i = 0; i < 20; ++i) open(i % kEditorGroups);
    const long before = RssKb();
    for (int i = 0; i < 100; ++i) open(i % kEditorGroups);
    const long after = RssKb();
    std::printf("RSS before %ld kB, after 100 open/close %ld kB, growth %ld kB (limit 2048)\n",
                before, after, after - before);
    return 0;
}
