#include "sim/SimOptions.h"

#include <QCommandLineParser>
#include <functional>

namespace quillon::sim {

namespace {

struct OptionSpec {
    const char* name;
    const char* value;  // nullptr for a flag
    const char* help;
};

// Every option, in the order --help lists them.
constexpr OptionSpec kOptions[] = {
    {"pty", "path", "Serve a new pseudo-terminal; PATH becomes a symbolic link to it."},
    {"tcp", "port", "Serve TCP connections on PORT as a network module (0: any free port)."},
    {"bind", "address", "Address for --tcp (default 127.0.0.1, loopback only)."},
    {"mac", "mac",
     "With --tcp: the module's MAC, e.g. 00-20-4a-14-01-18 (default\n"
     "                          02-00-00-00-hh-ll with the data port in hh-ll)."},
    {"search-listen", "addr",
     "With --tcp: where the module hears the device search on UDP 30718\n"
     "                          (default 0.0.0.0; e.g. 127.255.255.255 for loopback only)."},
    {"no-search", nullptr, "With --tcp: don't answer the device search."},
    {"device", "path", "Serve an existing serial device, e.g. one end of a socat pty pair."},
    {"station", "list", "Station numbers on the bus, e.g. 1,3,7 (default 1)."},
    {"model", "codes", "Model code per station, e.g. 1205,401; the last one repeats (default 1205)."},
    {"freq-class", "n", "Factory defaults for 0 = 50 Hz (default) or 1 = 60 Hz."},
    {"model-word", "n", "Value of register 0x252F (default 0x0100)."},
    {"version", "n", "Software version 13-01 in thousandths (default: the catalogue's)."},
    {"data-dir", "dir", "Where PARAM.DAT and IntialParam.DAT are (default: beside the program, else the installed data folder)."},
    {"baud", "rate", "4800, 9600, 19200 or 38400 (default: the drive's 09-02)."},
    {"data-bits", "n", "7 or 8 (default 8)."},
    {"parity", "p", "none, odd or even (default: the drive's 09-04)."},
    {"stop-bits", "n", "1 or 2 (default: the drive's 09-03)."},
    {"fault-code", "n", "Every station starts tripped with this fault code (fault reset clears it)."},
    {"terminals", "mask",
     "What the terminal word 0x2522 reads, e.g. 0x45: bits 0-3 inputs 1-4, bit 6 relay R1."},
    {"wire-timing", nullptr,
     "Pace replies as the line would: 11 bits a character, the\n"
     "                          3.5-character silence after a request, the turnaround."},
    {"turnaround-ms", "ms", "The drive's pause before it answers, with --wire-timing (default 1)."},
    {"bad-crc-every", "n", "Break the CRC of every Nth reply."},
    {"drop-every", "n", "Send no reply to every Nth request."},
    {"truncate-every", "n", "Send only the first half of every Nth reply."},
    {"extra-delay-ms", "ms", "Send every reply this much later."},
    {"silent-after", "n", "Each station answers N frames, then keeps silent."},
};

bool ToInt(const QString& text, int& out, int lo, int hi)
{
    bool ok = false;
    const int v = text.trimmed().toInt(&ok, 0);
    if (!ok || v < lo || v > hi)
        return false;
    out = v;
    return true;
}

}  // namespace

QString SimHelpText()
{
    QString text = QStringLiteral(
        "Usage: r770-sim [options]\n"
        "A simulated bus of R770 drives answering Modbus RTU: parameter registers with the\n"
        "catalogue's factory defaults, the 0x25xx control and status block with a running\n"
        "motor, identification, parameter password, exceptions 'Q' 'R' 'S' 'T', broadcasts to\n"
        "station 0, and changes of station and line settings through 09-00..09-04.\n"
        "At least one of --pty, --tcp, --device is needed. Prints one line per endpoint, then\n"
        "\"ready\"; stops on SIGINT or SIGTERM. With --tcp it plays a network module: it also\n"
        "answers the device search on UDP 30718 and takes a new address given by MAC.\n\nOptions:\n");
    for (const OptionSpec& o : kOptions) {
        QString head = QStringLiteral("  --%1").arg(QLatin1String(o.name));
        if (o.value)
            head += QStringLiteral(" %1").arg(QString::fromLatin1(o.value).toUpper());
        text += head.leftJustified(26) + QLatin1String(o.help) + QLatin1Char('\n');
    }
    text += QStringLiteral("  --help                  This text.\n");
    return text;
}

QString ParseSimOptions(const QStringList& args, SimOptions& options, bool& help)
{
    help = false;
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const OptionSpec& o : kOptions) {
        parser.addOption(o.value ? QCommandLineOption(QLatin1String(o.name), QLatin1String(o.help),
                                                      QLatin1String(o.value))
                                 : QCommandLineOption(QLatin1String(o.name), QLatin1String(o.help)));
    }
    parser.addOption(QCommandLineOption(QStringLiteral("help")));
    if (!parser.parse(QStringList{QStringLiteral("r770-sim")} + args))
        return parser.errorText();
    if (parser.isSet(QStringLiteral("help"))) {
        help = true;
        return QString();
    }
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("unexpected argument %1").arg(parser.positionalArguments().first());

    const auto value = [&](const char* name) { return parser.value(QLatin1String(name)); };
    const auto isSet = [&](const char* name) { return parser.isSet(QLatin1String(name)); };
    // An integer option within bounds into `out`; false with an error text otherwise.
    QString error;
    const auto number = [&](const char* name, int lo, int hi, const std::function<void(int)>& use) {
        if (!isSet(name))
            return;
        int v = 0;
        if (!ToInt(value(name), v, lo, hi)) {
            error = QStringLiteral("--%1 takes a number from %2 to %3")
                        .arg(QLatin1String(name)).arg(lo).arg(hi);
            return;
        }
        use(v);
    };

    options.ptyPath = value("pty");
    options.devicePath = value("device");
    if (isSet("bind"))
        options.bindAddress = value("bind");
    number("tcp", 0, 65535, [&](int v) { options.tcpPort = v; });
    if (isSet("mac")) {
        options.mac = ParseMac(value("mac"));
        if (!options.mac)
            return QStringLiteral("--mac takes six hex pairs joined by '-', e.g. 00-20-4a-14-01-18");
    }
    if (isSet("search-listen")) {
        options.searchListen = value("search-listen");
        if (!ParseIpv4(options.searchListen))
            return QStringLiteral("--search-listen takes an IPv4 address");
    }
    options.answerSearch = !isSet("no-search");
    if (options.ptyPath.isEmpty() && options.devicePath.isEmpty() && options.tcpPort < 0 &&
        error.isEmpty())
        return QStringLiteral("give at least one of --pty, --tcp, --device");

    BusSetup& bus = options.bus;
    std::vector<int> stations;
    for (const QString& s : value("station").split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        int v = 0;
        if (!ToInt(s, v, 1, 247))
            return QStringLiteral("--station takes numbers from 1 to 247, e.g. 1,3,7");
        stations.push_back(v);
    }
    if (stations.empty())
        stations.push_back(1);
    std::vector<int> models;
    for (const QString& s : value("model").split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        int v = 0;
        if (!ToInt(s, v, 1, 65535))
            return QStringLiteral("--model takes model codes, e.g. 1205,401");
        models.push_back(v);
    }
    if (models.empty())
        models.push_back(1205);
    bus.stations.clear();
    for (std::size_t i = 0; i < stations.size(); ++i)
        bus.stations.push_back(StationSetup{stations[i], models[std::min(i, models.size() - 1)]});

    number("freq-class", 0, 1, [&](int v) { bus.freqClass = v; });
    number("model-word", 0, 65535, [&](int v) { bus.modelWord = static_cast<std::uint16_t>(v); });
    number("version", 0, 65535, [&](int v) { bus.version = v; });
    bus.dataDir = value("data-dir");
    number("fault-code", 0, 65535, [&](int v) { bus.faultCode = static_cast<std::uint16_t>(v); });
    number("terminals", 0, 65535, [&](int v) { bus.terminals = static_cast<std::uint16_t>(v); });
    number("baud", 4800, 38400, [&](int v) { bus.line.baud = v; });
    number("data-bits", 7, 8, [&](int v) { bus.line.dataBits = v; });
    number("stop-bits", 1, 2, [&](int v) { bus.line.stopBits = v; });
    if (isSet("baud") && error.isEmpty() && !IsDriveBaudRate(*bus.line.baud))
        return QStringLiteral("--baud takes 4800, 9600, 19200 or 38400");
    if (isSet("parity")) {
        const QString p = value("parity").toLower();
        if (p == QLatin1String("none")) bus.line.parity = Parity::None;
        else if (p == QLatin1String("odd")) bus.line.parity = Parity::Odd;
        else if (p == QLatin1String("even")) bus.line.parity = Parity::Even;
        else return QStringLiteral("--parity takes none, odd or even");
    }
    bus.wireTiming = isSet("wire-timing");
    if (isSet("turnaround-ms")) {
        bool ok = false;
        bus.turnaroundMs = value("turnaround-ms").toDouble(&ok);
        if (!ok || bus.turnaroundMs < 0 || bus.turnaroundMs > 10000)
            return QStringLiteral("--turnaround-ms takes milliseconds from 0 to 10000");
    }
    number("bad-crc-every", 0, 1000000, [&](int v) { bus.faults.badCrcEvery = v; });
    number("drop-every", 0, 1000000, [&](int v) { bus.faults.dropEvery = v; });
    number("truncate-every", 0, 1000000, [&](int v) { bus.faults.truncateEvery = v; });
    number("extra-delay-ms", 0, 60000, [&](int v) { bus.faults.extraDelayMs = v; });
    number("silent-after", 0, 1000000, [&](int v) { bus.faults.silentAfter = v; });
    return error;
}

}  // namespace quillon::sim
