// quillon-cli catalogue: the rows a new project for a model starts with.

#include "CliCommand.h"
#include "CliPrompt.h"

#include "base/Globals.h"
#include "params/M330Doc.h"
#include "params/ModelTable.h"

namespace quillon::cli {

CliPrompt& TheCliPrompt();

int RunCatalogue(const QStringList& args, QTextStream& out) {
    QString error;
    const auto model = OptionValue(args, QStringLiteral("--model"), error);
    const auto freq = OptionValue(args, QStringLiteral("--freq"), error);
    if (!error.isEmpty()) return UsageError(error);
    for (qsizetype i = 0; i < args.size(); i += 2)
        if (args[i] != QLatin1String("--model") && args[i] != QLatin1String("--freq"))
            return UsageError(QStringLiteral("catalogue: unknown argument '%1'").arg(args[i]));
    if (!model) return UsageError(QStringLiteral("catalogue: --model CODE is required"));

    bool ok = false;
    const int code = model->toInt(&ok);
    QString capacity;
    const QString name = ok ? ModelNameFromCode(code, capacity) : QString();
    if (name.isEmpty())
        return UsageError(QStringLiteral("catalogue: no R770 model has the code '%1'").arg(*model));
    int freqClass = 0;
    if (freq) {
        if (*freq != QLatin1String("0") && *freq != QLatin1String("1"))
            return UsageError(QStringLiteral("catalogue: --freq takes 0 (50 Hz) or 1 (60 Hz), not '%1'")
                                  .arg(*freq));
        freqClass = freq->toInt();
    }

    SessionState session;
    session.m_strAppDir = g_strAppDir;
    session.m_nModelCode = code;
    session.m_strModelName = name;
    session.m_nFreqClass = freqClass;
    const int messagesBefore = TheCliPrompt().MessageCount();
    CM330Doc doc(session);
    doc.OnNewDocument();

    PrintRows(doc, out);
    return TheCliPrompt().MessageCount() == messagesBefore ? kExitOk : kExitFailed;
}

}  // namespace quillon::cli
