#include "CliCommand.h"

#include <array>
#include <cstdio>

namespace quillon::cli {

std::span<const CliCommand> Commands() {
    static const std::array<CliCommand, 2> kCommands{{
        {"catalogue", "--model CODE [--freq 0|1]",
         "print the rows of a new project for a model: group, row, exists, code, default, set value",
         &RunCatalogue},
        {"dump", "FILE.qpj",
         "print a project file: version, model, freq, print titles, graph channels, then its rows "
         "as catalogue prints them",
         &RunDump},
    }};
    return kCommands;
}

int UsageError(const QString& message) {
    std::fprintf(stderr, "quillon-cli: %s\nTry 'quillon-cli --help'.\n", message.toUtf8().constData());
    return kExitUsage;
}

std::optional<QString> OptionValue(const QStringList& args, const QString& name, QString& error) {
    const qsizetype i = args.indexOf(name);
    if (i < 0) return std::nullopt;
    if (i + 1 >= args.size()) {
        error = QStringLiteral("option %1 needs a value").arg(name);
        return std::nullopt;
    }
    return args[i + 1];
}

}  // namespace quillon::cli
