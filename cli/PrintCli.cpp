// quillon-cli print: the project's printed parameter list as a PDF file, page for page as on
// paper.

#include "CliCommand.h"

#include "base/Globals.h"
#include "base/SessionState.h"
#include "exchange/PrintLayout.h"
#include "exchange/PrintPainter.h"

#include <chrono>
#include <cstdio>

namespace quillon::cli {

int RunPrint(const QStringList& args, QTextStream&) {
    QString project;
    QString output;
    bool timing = false;
    for (qsizetype i = 0; i < args.size(); ++i) {
        if (args[i] == QLatin1String("-o") && i + 1 < args.size())
            output = args[++i];
        else if (args[i] == QLatin1String("--timing"))
            timing = true;
        else if (project.isEmpty() && !args[i].startsWith(u'-'))
            project = args[i];
        else
            return UsageError(QStringLiteral("print: unexpected argument '%1'").arg(args[i]));
    }
    if (project.isEmpty() || output.isEmpty())
        return UsageError(QStringLiteral("print: give FILE.qpj -o OUT.pdf"));

    const auto t0 = std::chrono::steady_clock::now();
    SessionState session;
    session.m_strAppDir = g_strAppDir;
    const std::unique_ptr<CM330Doc> doc = OpenProjectFile("print", project, session);
    if (!doc) return kExitFailed;
    QString error;
    if (!WriteParameterListPdf(*doc, output, QDateTime::currentDateTime(), error)) {
        std::fprintf(stderr, "quillon-cli: print: %s\n", qPrintable(error));
        return kExitFailed;
    }
    if (timing) {
        const double seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        std::fprintf(stderr, "timing: pages %d, print %.4f s\n",
                     ListPageCount(ListLines(*doc)), seconds);
    }
    return kExitOk;
}

}  // namespace quillon::cli
