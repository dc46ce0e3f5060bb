// quillon-cli export and import: the parameter files of the Export and Import commands.
//   export FILE.qpj -o OUT.csv|OUT.xlsx
//   import IN.csv|IN.xlsx|IN.xls [--into BASE.qpj] [--by-code] -o OUT.qpj

#include "CliCommand.h"
#include "CliPrompt.h"

#include "base/Globals.h"
#include "exchange/ParamExchange.h"
#include "exchange/ParamWorkbook.h"
#include "params/ModelTable.h"
#include "params/ProjectFile.h"

#include <QFileInfo>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace quillon::cli {

CliPrompt& TheCliPrompt();

namespace {

int Failed(const char* command, const QString& path, const QString& why) {
    std::fprintf(stderr, "quillon-cli: %s: %s: %s\n", command, path.toUtf8().constData(),
                 why.toUtf8().constData());
    return kExitFailed;
}

// A document with its session, both owned here.
struct Project {
    SessionState session;
    std::unique_ptr<CM330Doc> doc;
};

// Opens a project file as the program does; false after the reason on stderr.
bool OpenProject(const char* command, const QString& path, Project& project) {
    project.session.m_strAppDir = g_strAppDir;
    project.doc = OpenProjectFile(command, path, project.session);
    return project.doc != nullptr;
}

// A new project of the model with this display name; false when no model has it.
bool NewProject(const QString& modelName, Project& project) {
    QString capacity;
    int code = -1;
    ModelFromName(modelName.trimmed(), code, capacity);
    if (code < 0) return false;
    project.session.m_strAppDir = g_strAppDir;
    project.session.m_nModelCode = code;
    project.session.m_strModelName = modelName.trimmed();
    project.doc = std::make_unique<CM330Doc>(project.session);
    project.doc->OnNewDocument();
    return true;
}

// The value of -o; empty after a usage error was reported in `error`.
QString Output(const QStringList& args, QString& error) {
    const auto out = OptionValue(args, QStringLiteral("-o"), error);
    if (!out && error.isEmpty()) error = QStringLiteral("-o OUT is required");
    return out.value_or(QString());
}

}  // namespace

int RunExport(const QStringList& args, QTextStream&) {
    QString error;
    const QString output = Output(args, error);
    if (!error.isEmpty()) return UsageError(QStringLiteral("export: ") + error);
    const qsizetype o = args.indexOf(QStringLiteral("-o"));
    if (args.size() != 3) return UsageError(QStringLiteral("export: give one project file and -o OUT"));
    const auto format = FormatOfPath(output);
    if (!format || output.endsWith(QLatin1String(".xls"), Qt::CaseInsensitive))
        return UsageError(QStringLiteral("export: OUT must end in .csv or .xlsx"));
    const QString input = args[o == 0 ? 2 : 0];
    Project project;
    if (!OpenProject("export", input, project)) return kExitFailed;
    if (!WriteParamFile(*project.doc, *format, output, QDateTime::currentDateTime(), error))
        return Failed("export", output, error);
    return kExitOk;
}

int RunImport(const QStringList& args, QTextStream&) {
    QString error;
    const QString output = Output(args, error);
    const auto base = OptionValue(args, QStringLiteral("--into"), error);
    if (!error.isEmpty()) return UsageError(QStringLiteral("import: ") + error);
    QStringList inputs;
    for (qsizetype i = 0; i < args.size(); ++i) {
        if (args[i] == QLatin1String("-o") || args[i] == QLatin1String("--into")) ++i;
        else if (args[i] == QLatin1String("--by-code")) continue;
        else if (args[i].startsWith(u'-')) return UsageError(QStringLiteral("import: unknown option '%1'").arg(args[i]));
        else inputs << args[i];
    }
    if (inputs.size() != 1) return UsageError(QStringLiteral("import: give exactly one file to import"));
    const QString input = inputs[0];
    const auto format = FormatOfPath(input);
    if (!format) return UsageError(QStringLiteral("import: the file must end in .csv, .xlsx or .xls"));
    const ImportMatch match = args.contains(QStringLiteral("--by-code")) ? ImportMatch::ByCode
                                                                          : ImportMatch::ByPosition;
    if (!QFileInfo(input).isFile()) return Failed("import", input, QStringLiteral("no such file"));

    Project project;
    if (base) {
        if (!OpenProject("import", *base, project)) return kExitFailed;
    } else if (*format == ExportFormat::Excel) {
        // Without a base, a workbook makes a new project of the model it names.
        const auto book = ReadWorkbookFile(input, error);
        if (!book) return Failed("import", input, error);
        const QString model = WorkbookModelName(*book);
        if (!NewProject(model, project))
            return Failed("import", input,
                          QStringLiteral("the workbook names no R770 model ('%1'); give --into BASE.qpj")
                              .arg(model));
    } else {
        // A CSV file names its model on line 1 and the import resets the project to it.
        project.session.m_strAppDir = g_strAppDir;
        project.doc = std::make_unique<CM330Doc>(project.session);
    }
    try {
        if (ImportParamFile(*project.doc, input, match) != ImportResult::Done) return kExitFailed;
    } catch (const std::out_of_range&) {
        return Failed("import", input, QStringLiteral("the file has more rows than the model's groups"));
    }
    if (!SaveProjectDocument(*project.doc, output, error)) return Failed("import", output, error);
    return kExitOk;
}

}  // namespace quillon::cli
