// quillon-cli identify: which drive answers at a station, read the way the program identifies
// it when it links: run source 00-02, the model word, then capacity and version in one frame.

#include "CliCommand.h"
#include "CliPrompt.h"
#include "TransferCli.h"

#include "link/DriveSerial.h"
#include "link/RegisterReaders.h"
#include "params/ModelTable.h"


namespace quillon::cli {

namespace {

// The program's demo line: COM1, station 1 (19200 8N2 are the shared defaults).
QStringList WithDefaults(QStringList args)
{
    if (!args.contains(QStringLiteral("--port")) && !args.contains(QStringLiteral("--tcp")))
        args << QStringLiteral("--port") << QStringLiteral("COM1");
    if (!args.contains(QStringLiteral("--station")))
        args << QStringLiteral("--station") << QStringLiteral("1");
    return args;
}

}  // namespace

int RunIdentify(const QStringList& args, QTextStream& out)
{
    LinkOptions o;
    QStringList rest;
    const QString command = QStringLiteral("identify");
    if (const QString error = ParseLinkOptions(command, WithDefaults(args), o, rest); !error.isEmpty())
        return UsageError(error);
    if (!rest.isEmpty())
        return UsageError(QStringLiteral("identify: unknown argument '%1'").arg(rest.front()));

    CDriveSerial link;
    if (!OpenLink(command, o, link))
        return kExitFailed;
    int runSource = 0, modelWord = 0;
    Identification id;
    if (!ReadRunSource(link, o.station, runSource) || !ReadModelWord(link, o.station, modelWord))
        return kExitFailed;
    const ReplyVerdict v = ReadIdentification(link, o.station, ReplyCaller::Identification, id);
    if (!v.ok) {
        ShowVerdict(v);
        return kExitFailed;
    }
    QString capacity;
    const QString model = ModelNameFromCode(id.capacity, capacity);
    out << "port\t" << o.port << '\t' << link.LinkDescription() << '\n'
        << "station\t" << o.station << '\n'
        << "model\t" << id.capacity << '\t' << (model.isEmpty() ? QStringLiteral("(unknown)") : model) << '\n'
        << "capacity\t" << (capacity.isEmpty() ? QStringLiteral("-") : capacity) << '\n'
        << "version\t" << VersionText(id.version) << '\n'
        << "run source\t" << runSource << '\n'
        << "model word\t" << modelWord << '\n';
    return kExitOk;
}

}  // namespace quillon::cli
