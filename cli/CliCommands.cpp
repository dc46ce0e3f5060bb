#include "CliCommand.h"

#include <cstdio>

namespace quillon::cli {

std::span<const CliCommand> Commands() {
    static const CliCommand kCommands[] = {
        {"catalogue", "--model CODE [--freq 0|1]",
         "print the rows of a new project for a model: group, row, exists, code, default, set value",
         &RunCatalogue},
        {"dump", "FILE.qpj",
         "print a project file: version, model, freq, print titles, graph channels, then its rows "
         "as catalogue prints them",
         &RunDump},
        {"export", "FILE.qpj -o OUT.csv|OUT.xlsx",
         "export a project's parameters as the Export command does (format from OUT's extension)",
         &RunExport},
        {"import", "IN.csv|IN.xlsx|IN.xls [--into BASE.qpj] [--by-code] -o OUT.qpj",
         "import parameters as the Import command does into BASE (a workbook without BASE: a new "
         "project of the model it names); --by-code matches lines to rows by code",
         &RunImport},
        {"identify",
         "[--port COMn | --tcp HOST[:PORT]] [--station N] [--baud B] [--data 7|8] "
         "[--parity none|odd|even] [--stop 1|2]",
         "identify the drive at a station as the program does when it links: model, capacity, "
         "version, run source (defaults: COM1, station 1, 19200 8N2)",
         &RunIdentify},
        {"read",
         "(--port COMn | --tcp HOST[:PORT]) --station N [--baud B] [--data 7|8] "
         "[--parity none|odd|even] [--stop 1|2] -o OUT.qpj [--timing]",
         "read all parameter groups of a drive into a new project for its model, as the Read "
         "command does (defaults: 19200 8N2; --timing sets the time against the wire minimum)",
         &RunRead},
        {"write",
         "IN.qpj (--port COMn | --tcp HOST[:PORT]) --station N [--baud B] [--data 7|8] "
         "[--parity none|odd|even] [--stop 1|2] [--yes]",
         "write a project to a drive with the Write command's guards; questions are answered "
         "No unless --yes",
         &RunWrite},
        {"compare",
         "FILE.qpj [--mode 0|1|2] [(--port COMn | --tcp HOST[:PORT]) --station N] [--baud B] "
         "[-o OUT.txt] [--timing]",
         "the rows whose values differ, as the compare window saves them (0 default/set, 1 "
         "default/read, 2 set/read; 1 and 2 read the drive first)",
         &RunCompare},
        {"print", "FILE.qpj -o OUT.pdf [--timing]",
         "the printed parameter list of a project as a PDF file", &RunPrint},
        {"control",
         "(--port COMn | --tcp HOST[:PORT]) --station N [--baud B] [--data 7|8] "
         "[--parity none|odd|even] [--stop 1|2] run|stop|forward|reverse|jog-forward|"
         "jog-reverse|reset|freq HZ",
         "press one button of the control panel: the same frames, frequency limits and texts",
         &RunControl},
        {"status",
         "(--port COMn | --tcp HOST[:PORT]) --station N [--baud B] [--data 7|8] "
         "[--parity none|odd|even] [--stop 1|2] [--watch SECONDS]",
         "the status monitor's values as name<TAB>value lines; with --watch one block per "
         "400 ms poll, then the poll count and mean period on stderr",
         &RunStatus},
        {"set", "FILE.qpj CODE=VALUE... [-o OUT.qpj]",
         "set values of a project through the checks of their editor pages; a refused value "
         "leaves the file untouched", &RunSet},
        {"page-write",
         "(--port COMn | --tcp HOST[:PORT]) --station N [--baud B] [--data 7|8] "
         "[--parity none|odd|even] [--stop 1|2] CODE VALUE [--model CODE] [--project FILE.qpj] "
         "[--yes] [--timing]",
         "write one parameter as its row's write button does, with every guard and rule; the "
         "rest of its page from the project or a new one (model 1205 unless --model)",
         &RunPageWrite},
        {"record",
         "(--port COMn | --tcp HOST[:PORT]) --station N --seconds S [--channel NAME]... "
         "-o FILE.csv [--baud B] [--data 7|8] [--parity none|odd|even] [--stop 1|2]",
         "sample up to four channels (the graph's list names) each 100 ms tick as the graph "
         "window does and write them as a graph CSV file (default channels: set and output frequency, "
         "output voltage and current); Ctrl-C ends early and still writes",
         &RunRecord},
        {"backup",
         "(--port COMn | --tcp HOST[:PORT])... --stations LIST -o DIR [--baud B] [--data 7|8] "
         "[--parity none|odd|even] [--stop 1|2]",
         "read every station of LIST (e.g. 1-4,7) on every link into DIR/LINK-STATION.qpj, the "
         "links in parallel; a summary table at the end, exit 1 if any station failed",
         &RunBackup},
    };
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
