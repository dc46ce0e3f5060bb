// quillon-cli read: the Read command's sequence against one station (identification, the
// catalogue of the drive's model, all groups), saved as a project file.

#include "CliCommand.h"
#include "CliPrompt.h"
#include "TransferCli.h"

#include "params/ProjectFile.h"
#include "transfer/TransferCommands.h"

#include <chrono>
#include <cstdio>

namespace quillon::cli {

CliPrompt& TheCliPrompt();

int RunRead(const QStringList& args, QTextStream&) {
    LinkOptions options;
    QStringList rest;
    if (const QString error = ParseLinkOptions(QStringLiteral("read"), args, options, rest);
        !error.isEmpty())
        return UsageError(error);
    QString output;
    bool timing = false;
    for (qsizetype i = 0; i < rest.size(); ++i) {
        if (rest[i] == QLatin1String("-o") && i + 1 < rest.size())
            output = rest[++i];
        else if (rest[i] == QLatin1String("--timing"))
            timing = true;
        else
            return UsageError(QStringLiteral("read: unexpected argument '%1'").arg(rest[i]));
    }
    if (output.isEmpty()) return UsageError(QStringLiteral("read: give -o OUT.qpj"));

    CNotedLink link;
    if (!OpenLink(QStringLiteral("read"), options, link)) return kExitFailed;
    SessionState session;
    PrepareSession(session, options.station);
    CCliWindows windows(session, link);
    CliPrompt& prompt = TheCliPrompt();
    prompt.SetStation(options.station);

    CTransferCommands commands(session, windows);
    const auto t0 = std::chrono::steady_clock::now();
    const bool read = commands.OnRead();
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    if (timing) PrintWireTiming(link, options.baud, "read", seconds);
    if (!read || !windows.Document()) return kExitFailed;

    QString error;
    if (!SaveProjectDocument(*windows.Document(), output, error)) {
        std::fprintf(stderr, "quillon-cli: read: can't save %s: %s\n", qPrintable(output),
                     qPrintable(error));
        return kExitFailed;
    }
    return kExitOk;
}

}  // namespace quillon::cli
