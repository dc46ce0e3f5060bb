// quillon-cli backup: every listed station on every link read into a folder of projects, the
// links side by side, with a summary table at the end.

#include "CliCommand.h"
#include "TransferCli.h"

#include "base/Globals.h"
#include "base/SafeSave.h"
#include "link/StationList.h"
#include "transfer/FleetBackup.h"

#include <QDir>
#include <algorithm>
#include <chrono>
#include <cstdio>

namespace quillon::cli {

int RunBackup(const QStringList& args, QTextStream& out) {
    const QString command = QStringLiteral("backup");
    std::vector<LinkTarget> targets;
    LinkOptions line;  // the line settings every link shares
    QString stationText;
    QString dir;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& name = args[i];
        const bool linkOption = IsLinkOption(name) && name != QLatin1String("--station");
        if (!linkOption && name != QLatin1String("--stations") && name != QLatin1String("-o"))
            return UsageError(QStringLiteral("backup: unexpected argument '%1'").arg(name));
        if (i + 1 >= args.size())
            return UsageError(QStringLiteral("backup: option %1 needs a value").arg(name));
        const QString value = args[++i];
        if (name == QLatin1String("--stations")) {
            stationText = value;
        } else if (name == QLatin1String("-o")) {
            dir = value;
        } else if (name == QLatin1String("--port") || name == QLatin1String("--tcp")) {
            LinkOptions link;
            if (const QString e = ApplyLinkOption(command, name, value, link); !e.isEmpty())
                return UsageError(e);
            // One worker per line: a line named twice would be opened twice.
            for (const LinkTarget& t : targets)
                if (LinkFileName(t) == LinkFileName(link))
                    return UsageError(QStringLiteral("backup: %1 is named twice").arg(value));
            targets.push_back(link);
        } else if (const QString e = ApplyLinkOption(command, name, value, line); !e.isEmpty()) {
            return UsageError(e);
        }
    }
    if (targets.empty()) return UsageError(QStringLiteral("backup: give --port COMn or --tcp HOST[:PORT]"));
    std::vector<int> stations;
    if (stationText.isEmpty() || !ParseStationList(stationText, stations) ||
        std::find(stations.begin(), stations.end(), 0) != stations.end())
        return UsageError(QStringLiteral("backup: --stations takes a list such as 1-4,7"));
    if (dir.isEmpty()) return UsageError(QStringLiteral("backup: give -o DIR"));
    // Nothing is asked of a drive unless its project can be kept. The folder is made as named (a
    // backup per day, say); one that can't be made is told by the check below.
    QDir().mkpath(dir);
    if (const QString problem = SaveTargetProblem(QDir(dir).filePath(QStringLiteral("x.qpj")));
        !problem.isEmpty())
        return UsageError(QStringLiteral("backup: ") + SaveFailureText(dir, problem));
    for (LinkTarget& t : targets) {
        t.baud = line.baud;
        t.dataBits = line.dataBits;
        t.parity = line.parity;
        t.stopBits = line.stopBits;
    }

    const auto t0 = std::chrono::steady_clock::now();
    const std::vector<BackupResult> results = RunFleetBackup(targets, stations, dir, g_strAppDir);
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    out << FormatBackupSummary(results);
    out << QStringLiteral("%1 links, %2 s in all\n").arg(targets.size()).arg(seconds, 0, 'f', 2);
    const bool failed =
        std::any_of(results.begin(), results.end(), [](const BackupResult& r) { return !r.ok; });
    return failed ? kExitFailed : kExitOk;
}

}  // namespace quillon::cli
