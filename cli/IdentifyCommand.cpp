// quillon-cli identify: which drive answers at a station, read the way the program identifies
// it when it links: run source 00-02, the model word, then capacity and version in one frame.

#include "CliCommand.h"
#include "CliPrompt.h"

#include "link/DriveSerial.h"
#include "link/LineSettings.h"
#include "link/RegisterReaders.h"
#include "link/SearchProtocol.h"
#include "params/ModelTable.h"

#include <cstdio>

namespace quillon::cli {

CliPrompt& TheCliPrompt();

namespace {

struct LinkOptions {
    QString port = QStringLiteral("COM1");
    int station = 1;
    int baud = 19200;
    int dataBits = 8;
    int parity = 0;  // 0 none, 1 odd, 2 even
    int stopBits = 2;
    PeerAddress peer;
};

const QStringList kOptionNames{"--port",      "--station", "--baud",     "--data-bits",
                               "--parity",    "--stop-bits", "--ip"};

// An integer option within bounds; false with `error` set otherwise.
bool IntOption(const QStringList& args, const char* name, int lo, int hi, int& out, QString& error)
{
    const auto text = OptionValue(args, QString::fromLatin1(name), error);
    if (!text)
        return error.isEmpty();
    bool ok = false;
    const int v = text->toInt(&ok);
    if (!ok || v < lo || v > hi) {
        error = QStringLiteral("identify: %1 takes a number from %2 to %3").arg(QLatin1String(name)).arg(lo).arg(hi);
        return false;
    }
    out = v;
    return true;
}

QString ParseOptions(const QStringList& args, LinkOptions& o)
{
    for (qsizetype i = 0; i < args.size(); i += 2) {
        if (!kOptionNames.contains(args[i]))
            return QStringLiteral("identify: unknown argument '%1'").arg(args[i]);
    }
    QString error;
    if (const auto port = OptionValue(args, QStringLiteral("--port"), error))
        o.port = port->toUpper();
    if (!IntOption(args, "--station", 1, 32, o.station, error) ||
        !IntOption(args, "--baud", 4800, 38400, o.baud, error) ||
        !IntOption(args, "--data-bits", 7, 8, o.dataBits, error) ||
        !IntOption(args, "--stop-bits", 1, 2, o.stopBits, error))
        return error;
    if (const auto parity = OptionValue(args, QStringLiteral("--parity"), error)) {
        const QStringList names{"none", "odd", "even"};
        o.parity = static_cast<int>(names.indexOf(parity->toLower()));
        if (o.parity < 0)
            return QStringLiteral("identify: --parity takes none, odd or even");
    }
    if (const auto ip = OptionValue(args, QStringLiteral("--ip"), error)) {
        const QStringList parts = ip->split(QLatin1Char(':'));
        const auto address = ParseIpv4(parts.front());
        bool portOk = parts.size() == 1;
        const int port = parts.size() == 2 ? parts[1].toInt(&portOk) : 0;
        if (!address || parts.size() > 2 || !portOk || port < 0 || port > 65535)
            return QStringLiteral("identify: --ip takes ADDRESS or ADDRESS:PORT");
        o.peer.m_nAddress = *address;
        o.peer.m_nPort = static_cast<std::uint16_t>(port);
    }
    if (!error.isEmpty())
        return error;
    if (o.port == QLatin1String("TCPIP") && o.peer.m_nAddress == 0)
        return QStringLiteral("identify: --port TCPIP needs --ip ADDRESS[:PORT] of the module");
    return QString();
}

}  // namespace

int RunIdentify(const QStringList& args, QTextStream& out)
{
    LinkOptions o;
    if (const QString error = ParseOptions(args, o); !error.isEmpty())
        return UsageError(error);

    CDriveSerial link;
    link.peerAddress = o.peer;
    if (!link.InitComm(o.port, static_cast<unsigned long>(o.baud),
                       static_cast<unsigned char>(o.dataBits), static_cast<unsigned char>(o.parity),
                       static_cast<float>(o.stopBits))) {
        std::fprintf(stderr, "quillon-cli: identify: Can't Open the Port! %s\n",
                     link.OpenFailureDetail().toUtf8().constData());
        return kExitFailed;
    }
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
