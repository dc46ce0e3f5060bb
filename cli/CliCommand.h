#pragma once
// The commands of quillon-cli. Each command parses its own arguments and returns the exit
// code: 0 done, 1 the work failed (message on stderr), 2 bad arguments.

#include <QStringList>
#include <QTextStream>
#include <memory>
#include <span>

namespace quillon {
class CM330Doc;
struct SessionState;
}

namespace quillon::cli {

inline constexpr int kExitOk = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

struct CliCommand {
    const char* name;
    const char* usage;     // arguments, as shown by --help
    const char* summary;   // one line
    int (*run)(const QStringList& args, QTextStream& out);
};

std::span<const CliCommand> Commands();

// Usage error: message on stderr, returns kExitUsage.
int UsageError(const QString& message);

// Value of "--name VALUE" in args; nullopt if absent. A flag without its value is an error,
// reported through `error`.
std::optional<QString> OptionValue(const QStringList& args, const QString& name, QString& error);

int RunCompare(const QStringList& args, QTextStream& out);
int RunPrint(const QStringList& args, QTextStream& out);
int RunCatalogue(const QStringList& args, QTextStream& out);
int RunDump(const QStringList& args, QTextStream& out);
int RunExport(const QStringList& args, QTextStream& out);
int RunImport(const QStringList& args, QTextStream& out);
int RunIdentify(const QStringList& args, QTextStream& out);
int RunRead(const QStringList& args, QTextStream& out);
int RunWrite(const QStringList& args, QTextStream& out);
int RunControl(const QStringList& args, QTextStream& out);
int RunStatus(const QStringList& args, QTextStream& out);
int RunRecord(const QStringList& args, QTextStream& out);
int RunBackup(const QStringList& args, QTextStream& out);

// A project file opened the way the program opens it, for `command`; nullptr after the reason on
// stderr. `version` receives the file's version field.
std::unique_ptr<CM330Doc> OpenProjectFile(const char* command, const QString& path,
                                          SessionState& session, qint32* version = nullptr);
int RunSet(const QStringList& args, QTextStream& out);
int RunPageWrite(const QStringList& args, QTextStream& out);

// The rows of a document, one a line: group, row, exists, code, default, set value (tab-separated).
void PrintRows(const CM330Doc& doc, QTextStream& out);

}  // namespace quillon::cli
