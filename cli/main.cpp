// quillon-cli: the headless companion of the desktop program. It works on the same core, with
// messages on stderr and questions answered by flags.

#include "CliCommand.h"
#include "CliPrompt.h"

#include "base/DataFiles.h"
#include "base/Globals.h"
#include "base/Language.h"
#include "base/SafeSave.h"
#include "base/TextTable.h"
#include "shell/LanguageSwitch.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QTextStream>
#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace quillon::cli {

CliPrompt& TheCliPrompt() {
    static CliPrompt prompt;
    return prompt;
}

namespace {

void PrintHelp(QTextStream& out) {
    out << "Usage: quillon-cli COMMAND [ARGS]\n\nCommands:\n";
    for (const CliCommand& c : Commands())
        out << "  " << c.name << ' ' << c.usage << "\n      " << c.summary << '\n';
    out << "\nData files (PARAM.DAT, IntialParam.DAT, ...) are read from the program's directory.\n"
           "Commands that use a link also take --log-frames FILE: each request and reply in hex\n"
           "with its time and result, appended to FILE.\n"
           "--lang en before or after the command gives group and parameter names and the\n"
           "program's own words in English; without it they stand as the desktop shows them by\n"
           "default.\n"
           "Exit codes: 0 done, 1 the work failed, 2 bad arguments.\n";
}

// Takes "--lang KEY" out of `args`: the language the texts are given in. Empty when all is well.
QString TakeLanguageOption(QStringList& args) {
    const qsizetype at = args.indexOf(QStringLiteral("--lang"));
    if (at < 0) return {};
    if (at + 1 >= args.size()) return QStringLiteral("--lang takes en or system");
    const QString key = args[at + 1];
    if (key != LanguageSettingKey(UiLanguage::English) && key != LanguageSettingKey(UiLanguage::System))
        return QStringLiteral("--lang takes en or system, not '%1'").arg(key);
    args.remove(at, 2);
    ApplyLanguage(LanguageFromSetting(key, QLocale::AnyLanguage));
    return {};
}

}  // namespace
}  // namespace quillon::cli

int main(int argc, char** argv) {
    using namespace quillon;
    using namespace quillon::cli;
    FailWritesOverTheSizeLimit();
    // Printing lays out text in real fonts, which takes a GUI application; without a display it
    // runs on the offscreen platform. Every other command stays a plain console program.
    const bool printing = argc > 1 && std::string_view(argv[1]) == "print";
    if (printing && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::unique_ptr<QCoreApplication> application =
        printing ? std::make_unique<QGuiApplication>(argc, argv)
                 : std::make_unique<QCoreApplication>(argc, argv);
    QCoreApplication& app = *application;
    g_strAppDir = QCoreApplication::applicationDirPath() + u'/';
    ScopedPrompt prompt(TheCliPrompt());

    QStringList args = app.arguments().mid(1);
    QTextStream out(stdout);
    if (const QString error = TakeLanguageOption(args); !error.isEmpty()) return UsageError(error);
    if (args.isEmpty()) {
        PrintHelp(out);
        return kExitUsage;
    }
    const QString name = args.takeFirst();
    if (name == QLatin1String("--help") || name == QLatin1String("-h") || name == QLatin1String("help")) {
        PrintHelp(out);
        return kExitOk;
    }
    for (const CliCommand& c : Commands()) {
        if (name != QLatin1String(c.name)) continue;
        try {
            return c.run(args, out);
        } catch (const std::out_of_range& e) {
            // The rows the program needs are not in the data files beside it.
            out.flush();
            std::fprintf(stderr, "quillon-cli: %s: %s (%s in %s)\n", c.name,
                         LoadText(TextId::DataFileLost).toUtf8().constData(), e.what(),
                         DataFolderOf(g_strAppDir, QStringLiteral("PARAM.DAT")).toUtf8().constData());
            return kExitFailed;
        } catch (const std::exception& e) {
            out.flush();
            std::fprintf(stderr, "quillon-cli: %s: %s\n", c.name, e.what());
            return kExitFailed;
        }
    }
    return UsageError(QStringLiteral("unknown command '%1'").arg(name));
}
