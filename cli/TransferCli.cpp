#include "TransferCli.h"

#include "base/Globals.h"
#include "base/Language.h"
#include "link/FrameLog.h"
#include "link/LineSettings.h"
#include "link/ModbusFrame.h"
#include "link/PortMap.h"
#include "link/SearchProtocol.h"
#include "sim/WireTiming.h"

#include <QHostAddress>
#include <QHostInfo>
#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace quillon::cli {
namespace {

constexpr int kBarWidth = 30;

// The IPv4 address of a host name or dotted address; nullopt when there is none.
std::optional<std::uint32_t> HostAddress(const QString& host) {
    if (const auto dotted = ParseIpv4(host)) return dotted;
    for (const QHostAddress& a : QHostInfo::fromName(host).addresses()) {
        bool ok = false;
        const std::uint32_t v4 = a.toIPv4Address(&ok);
        if (ok) return v4;
    }
    return std::nullopt;
}

bool Number(const QString& text, int& value) {
    bool ok = false;
    value = text.toInt(&ok);
    return ok;
}

// The frame log of this command, from --log-frames to the end of the process.
struct FrameLogHolder {
    std::unique_ptr<CFrameLogFile> file;
    ~FrameLogHolder() {
        if (file) SetFrameSink(nullptr);
    }
};

std::unique_ptr<CFrameLogFile>& FrameLogFile() {
    static FrameLogHolder holder;
    return holder.file;
}

}  // namespace

bool IsLinkOption(const QString& name) {
    static const QStringList valued{"--port", "--tcp",    "--station", "--baud",
                                    "--data", "--parity", "--stop",    "--log-frames"};
    return valued.contains(name);
}

QString ApplyLinkOption(const QString& command, const QString& name, const QString& value,
                        LinkOptions& o) {
    int n = 0;
    if (name == QLatin1String("--port")) {
        if (!o.port.isEmpty())
            return QStringLiteral("%1: give one of --port and --tcp").arg(command);
        o.port = value.toUpper();
        if (ComNumberFromName(o.port) == 0)
            return QStringLiteral("%1: --port takes a name such as COM1").arg(command);
    } else if (name == QLatin1String("--tcp")) {
        if (!o.port.isEmpty())
            return QStringLiteral("%1: give one of --port and --tcp").arg(command);
        const QStringList parts = value.split(u':');
        int port = 0;
        if (parts.size() > 2 ||
            (parts.size() == 2 && (!Number(parts[1], port) || port < 1 || port > 65535)))
            return QStringLiteral("%1: --tcp takes HOST or HOST:PORT").arg(command);
        const auto address = HostAddress(parts.front());
        if (!address) return QStringLiteral("%1: unknown host '%2'").arg(command, parts.front());
        o.port = QStringLiteral("TCPIP");
        o.peer.m_nAddress = *address;
        o.peer.m_nPort = static_cast<std::uint16_t>(port);
    } else if (name == QLatin1String("--station")) {
        if (!Number(value, n) || n < 1 || n > 32)
            return QStringLiteral("%1: --station takes a number from 1 to 32").arg(command);
        o.station = n;
    } else if (name == QLatin1String("--baud")) {
        if (!Number(value, n) || !IsDriveBaudRate(n))
            return QStringLiteral("%1: --baud takes 4800, 9600, 19200 or 38400").arg(command);
        o.baud = n;
    } else if (name == QLatin1String("--data")) {
        if (!Number(value, n) || (n != 7 && n != 8))
            return QStringLiteral("%1: --data takes 7 or 8").arg(command);
        o.dataBits = n;
    } else if (name == QLatin1String("--parity")) {
        const qsizetype p = QStringList{"none", "odd", "even"}.indexOf(value.toLower());
        if (p < 0) return QStringLiteral("%1: --parity takes none, odd or even").arg(command);
        o.parity = static_cast<int>(p);
    } else if (name == QLatin1String("--stop")) {
        if (!Number(value, n) || (n != 1 && n != 2))
            return QStringLiteral("%1: --stop takes 1 or 2").arg(command);
        o.stopBits = n;
    } else if (name == QLatin1String("--log-frames")) {
        auto file = std::make_unique<CFrameLogFile>(value);
        if (!file->Ok())
            return QStringLiteral("%1: can't write the frame log %2: %3")
                .arg(command, value, file->Error());
        SetFrameSink(file.get());
        FrameLogFile() = std::move(file);
    }
    return QString();
}

QString ParseLinkOptions(const QString& command, const QStringList& args, LinkOptions& o,
                         QStringList& rest) {
    bool stationGiven = false;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& name = args[i];
        if (!IsLinkOption(name)) {
            rest << name;
            continue;
        }
        if (i + 1 >= args.size())
            return QStringLiteral("%1: option %2 needs a value").arg(command, name);
        if (const QString error = ApplyLinkOption(command, name, args[++i], o); !error.isEmpty())
            return error;
        stationGiven = stationGiven || name == QLatin1String("--station");
    }
    if (o.port.isEmpty())
        return QStringLiteral("%1: give --port COMn or --tcp HOST[:PORT]").arg(command);
    if (!stationGiven) return QStringLiteral("%1: give --station N").arg(command);
    return QString();
}

ErrType CNotedLink::CommandSend(const unsigned char* tx, unsigned long txLength, unsigned char* rx,
                                unsigned long rxLength) {
    m_exchanges.push_back(Exchange{txLength, rxLength});
    return CDriveSerial::CommandSend(tx, txLength, rx, rxLength);
}

bool OpenLink(const QString& command, const LinkOptions& o, CDriveSerial& link) {
    if (OpenLinkTarget(o, link)) return true;
    std::fprintf(stderr, "quillon-cli: %s: Can't Open the Port! %s\n", qPrintable(command),
                 link.OpenFailureDetail().toUtf8().constData());
    return false;
}

void PrintWireTiming(const CNotedLink& link, int baud, const char* what, double seconds,
                     double pauseSeconds) {
    const sim::WireTiming line{baud, sim::kDefaultTurnaroundMs};
    double wire = 0.0;
    for (const CNotedLink::Exchange& e : link.Exchanges())
        wire += line.ExchangeSeconds(static_cast<int>(e.request), static_cast<int>(e.reply));
    std::fprintf(stderr, "timing: frames %zu, %s %.4f s, wire minimum %.4f s, ratio %.3f\n",
                 link.Exchanges().size(), what, seconds, wire, wire > 0 ? seconds / wire : 0.0);
    if (pauseSeconds > 0)
        std::fprintf(stderr, "timing: with the required pauses %.4f s, ratio %.3f\n",
                     wire + pauseSeconds, seconds / (wire + pauseSeconds));
}

void PrepareSession(SessionState& session, int station) {
    session.m_strAppDir = g_strAppDir;
    session.m_stations = {station};
    session.m_bOnline = 1;
}

void CCliWindows::ShowUnwrittenParams(const std::vector<MotorParam>& params) {
    std::fprintf(stderr, "%s\nCode\tParameter Name\n",
                 Translated("Caption", "未写入马达参数").toUtf8().constData());
    for (const MotorParam& p : params)
        std::fprintf(stderr, "%s\t%s\n", p.m_strCode.toUtf8().constData(),
                     p.m_strName.toUtf8().constData());
}

void CCliWindows::Show(const QString& title) {
    m_bVisible = true;
    m_bTerminal = ::isatty(STDERR_FILENO) != 0;
    if (m_bTerminal) std::fprintf(stderr, "%s\n", title.toUtf8().constData());
}

void CCliWindows::Hide() {
    if (m_bVisible && m_bTerminal) std::fprintf(stderr, "\n");
    m_bVisible = false;
}

void CCliWindows::SetRange(int lower, int upper) {
    m_nLower = lower;
    m_nUpper = upper;
    Draw();
}

void CCliWindows::SetPos(int pos) {
    m_nPos = pos;
    Draw();
}

void CCliWindows::SetLabel(const QString& label) {
    m_strLabel = label;
    Draw();
}

void CCliWindows::Draw() {
    if (!m_bVisible || !m_bTerminal) return;
    const int span = std::max(1, m_nUpper - m_nLower);
    const int filled = std::clamp((m_nPos - m_nLower) * kBarWidth / span, 0, kBarWidth);
    const std::string bar = std::string(static_cast<std::size_t>(filled), '#') +
                            std::string(static_cast<std::size_t>(kBarWidth - filled), '.');
    std::fprintf(stderr, "\r[%s] %-28s", bar.c_str(), m_strLabel.toUtf8().constData());
    std::fflush(stderr);
}

}  // namespace quillon::cli
