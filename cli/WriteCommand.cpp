// quillon-cli write: the Write command's sequence from a project file to one station, with its
// guards; questions are answered No unless --yes.

#include "CliCommand.h"
#include "CliPrompt.h"
#include "TransferCli.h"

#include "base/Prompt.h"
#include "params/ProjectFile.h"
#include "transfer/TransferCommands.h"

#include <cstdio>

namespace quillon::cli {

int RunWrite(const QStringList& args, QTextStream&) {
    LinkOptions options;
    QStringList rest;
    if (const QString error = ParseLinkOptions(QStringLiteral("write"), args, options, rest);
        !error.isEmpty())
        return UsageError(error);
    bool yes = false;
    QString input;
    for (const QString& a : rest) {
        if (a == QLatin1String("--yes"))
            yes = true;
        else if (!a.startsWith(u'-') && input.isEmpty())
            input = a;
        else
            return UsageError(QStringLiteral("write: unexpected argument '%1'").arg(a));
    }
    if (input.isEmpty()) return UsageError(QStringLiteral("write: give the project file IN.qpj"));

    SessionState session;
    PrepareSession(session, options.station);
    auto doc = std::make_unique<CM330Doc>(session);
    const ProjectOpenResult opened = OpenProjectDocument(*doc, input);
    if (!opened.ok)
        return UsageError(QStringLiteral("write: can't open %1: %2").arg(input, opened.error));
    // Catalogue values stand where the file was not read: they are not the project, and they
    // would overwrite the drive's own. Refused before the port is opened.
    if (!opened.unread.isEmpty())
        return UsageError(
            QStringLiteral("write: %1 was not read in full, nothing is sent: %2")
                .arg(input, opened.unread));

    CDriveSerial link;
    if (!OpenLink(QStringLiteral("write"), options, link)) return kExitFailed;
    CCliWindows windows(session, link);
    windows.SetDocument(std::move(doc));
    CliPrompt prompt(yes);
    prompt.SetStation(options.station);
    ScopedPrompt scope(prompt);
    CTransferCommands commands(session, windows);
    return commands.OnWrite() ? kExitOk : kExitFailed;
}

}  // namespace quillon::cli
