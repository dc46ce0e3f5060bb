// quillon-cli compare: the compare window's result in the layout of its saved text. Modes 1 and
// 2 read every group of the drive into the project's read values first, as the Compare command
// does; mode 0 needs no drive.

#include "CliCommand.h"
#include "CliPrompt.h"
#include "TransferCli.h"

#include "base/Globals.h"
#include "exchange/CompareCommand.h"

#include <QFile>
#include <QSaveFile>
#include <chrono>
#include <cstdio>

namespace quillon::cli {

CliPrompt& TheCliPrompt();

namespace {

// The choice comes from --mode; the result is kept for the caller.
class CCliCompareWindows final : public ICompareWindows {
public:
    explicit CCliCompareWindows(int mode) : m_nMode(mode) {}
    std::optional<int> ChooseCompareMode(bool) override { return m_nMode; }
    void ShowCompare(int mode, const CompareResult& result) override {
        text = CompareText(result, mode);
    }
    QByteArray text;

private:
    int m_nMode;
};

bool WriteOut(const QString& path, const QByteArray& text) {
    if (path.isEmpty()) {
        QFile out;
        return out.open(stdout, QIODevice::WriteOnly) && out.write(text) == text.size();
    }
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return true;
    std::fprintf(stderr, "quillon-cli: compare: can't write %s: %s\n", qPrintable(path),
                 qPrintable(file.errorString()));
    return false;
}

}  // namespace

int RunCompare(const QStringList& args, QTextStream& out) {
    // Mode 0 needs no drive, and then no link options either.
    LinkOptions options;
    QStringList rest = args;
    const bool linked = args.contains(QStringLiteral("--port")) ||
                        args.contains(QStringLiteral("--tcp")) ||
                        args.contains(QStringLiteral("--station"));
    if (linked) {
        rest.clear();
        if (const QString error =
                ParseLinkOptions(QStringLiteral("compare"), args, options, rest);
            !error.isEmpty())
            return UsageError(error);
    }
    QString project;
    QString output;
    int mode = linked ? kCompareSetRead : kCompareDefaultSet;
    bool timing = false;
    for (qsizetype i = 0; i < rest.size(); ++i) {
        if (rest[i] == QLatin1String("-o") && i + 1 < rest.size()) {
            output = rest[++i];
        } else if (rest[i] == QLatin1String("--mode") && i + 1 < rest.size()) {
            bool ok = false;
            mode = rest[++i].toInt(&ok);
            if (!ok || mode < 0 || mode >= kCompareModeCount)
                return UsageError(QStringLiteral("compare: --mode takes 0, 1 or 2"));
        } else if (rest[i] == QLatin1String("--timing")) {
            timing = true;
        } else if (project.isEmpty() && !rest[i].startsWith(u'-')) {
            project = rest[i];
        } else {
            return UsageError(QStringLiteral("compare: unexpected argument '%1'").arg(rest[i]));
        }
    }
    if (project.isEmpty()) return UsageError(QStringLiteral("compare: give a project file"));
    if (mode != kCompareDefaultSet && !linked)
        return UsageError(QStringLiteral("compare: mode %1 reads a drive: give --port or --tcp "
                                         "and --station")
                              .arg(mode));

    CNotedLink link;
    SessionState session;
    PrepareSession(session, options.station);
    session.m_bOnline = linked ? 1 : 0;
    std::unique_ptr<CM330Doc> doc = OpenProjectFile("compare", project, session);
    if (!doc) return kExitFailed;
    if (linked && !OpenLink(QStringLiteral("compare"), options, link)) return kExitFailed;
    CCliWindows windows(session, link);
    windows.SetDocument(std::move(doc));
    TheCliPrompt().SetStation(options.station);

    CCliCompareWindows compareWindows(mode);
    CCompareCommand command(session, windows, compareWindows);
    const auto t0 = std::chrono::steady_clock::now();
    const bool shown = command.OnCompare();
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    if (timing && linked) PrintWireTiming(link, options.baud, "compare", seconds);
    if (!shown) return kExitFailed;
    out.flush();
    return WriteOut(output, compareWindows.text) ? kExitOk : kExitFailed;
}

}  // namespace quillon::cli
