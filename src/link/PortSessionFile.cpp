#include "link/PortSessionFile.h"

#include "base/Globals.h"
#include "base/SessionPlaces.h"
#include "base/TextConv.h"
#include "base/TextFile.h"

#include <QDir>

namespace quillon {
namespace {

constexpr qsizetype kMinimumFileBytes = 4;
// A module without a name is written as one blank, so that its line is never empty.
const QString kNoName = QStringLiteral(" ");

// The file holds one value a line, and its reader takes a carriage return before the line feed
// for part of the line's end. A value with a line feed in it, or ending in a carriage return,
// would come back as another value and move every line behind it ("TCPIP\r" would read as the
// TCP port and take the module count for its MAC); such a value is written without them.
QString LineValue(const QString& value)
{
    QString line = value;
    line.remove(u'\n');
    while (line.endsWith(u'\r'))
        line.chop(1);
    return line;
}

}  // namespace

std::array<QString, 3> PortSessionPlaces()
{
    return SessionFilePlaces(g_strAppDir, QLatin1String(kPortSessionFileName));
}

QString PortSessionPrimaryPath()
{
    return PortSessionPlaces()[0];
}

QString PortSessionFallbackPath()
{
    return PortSessionPlaces()[2];
}

PortSession ParsePortSession(const std::vector<QString>& lines)
{
    PortSession s;
    std::size_t next = 0;
    const auto take = [&](QString& out) {
        if (next >= lines.size())
            return false;
        out = lines[next++];
        return true;
    };
    if (!take(s.portText))
        return s;
    if (s.portText == QLatin1String(kTcpPortText) && !take(s.mac))
        return s;
    QString countText;
    if (!take(countText))
        return s;
    const int count = Atoi(countText);
    for (int i = 0; i < count; ++i) {
        QString mac, name;
        if (!take(mac) || !take(name))
            break;
        s.names.emplace_back(mac, name == kNoName ? QString() : name);
    }
    return s;
}

QByteArray FormatPortSession(const PortSession& session)
{
    const QString port = LineValue(session.portText);
    QString text = port + u'\n';
    if (port == QLatin1String(kTcpPortText))
        text += LineValue(session.mac) + u'\n';
    if (!session.names.empty()) {
        text += QString::asprintf("%d\n", static_cast<int>(session.names.size()));
        for (const auto& [mac, name] : session.names) {
            const QString nameLine = LineValue(name);
            text += LineValue(mac) + u'\n' + (nameLine.isEmpty() ? kNoName : nameLine) + u'\n';
        }
    }
    return text.toUtf8();
}

std::optional<PortSession> ReadPortSession()
{
    const auto bytes =
        ReadSessionFileAt(PortSessionPlaces(), [](const QString& path) { return ReadSmallFile(path); });
    if (!bytes || bytes->size() < kMinimumFileBytes)
        return std::nullopt;
    return ParsePortSession(SplitTextLines(*bytes));
}

bool WritePortSession(const PortSession& session)
{
    return SaveSessionFileAt(PortSessionPlaces(), FormatPortSession(session));
}

}  // namespace quillon
