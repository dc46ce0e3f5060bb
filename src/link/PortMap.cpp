#include "link/PortMap.h"

#include "base/Globals.h"
#include "base/SessionPlaces.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSerialPortInfo>
#include <QSet>
#include <algorithm>
#include <map>

namespace quillon {

int ComNumberFromName(const QString& portName)
{
    static const QRegularExpression re(QStringLiteral(R"(^(?:\\\\\.\\)?COM([1-9][0-9]{0,3})$)"),
                                       QRegularExpression::CaseInsensitiveOption);
    const auto m = re.match(portName.trimmed());
    return m.hasMatch() ? m.captured(1).toInt() : 0;
}

std::vector<PortEntry> ParsePinnedPorts(const QString& text)
{
    std::vector<PortEntry> out;
    static const QRegularExpression separators(QStringLiteral("[,\\r\\n]"));
    for (const QString& raw : text.split(separators, Qt::SkipEmptyParts)) {
        const QString item = raw.trimmed();
        if (item.isEmpty() || item.startsWith(QLatin1Char('#')))
            continue;
        const qsizetype eq = item.indexOf(QLatin1Char('='));
        if (eq <= 0)
            continue;
        const int com = ComNumberFromName(item.left(eq));
        const QString path = item.mid(eq + 1).trimmed();
        if (com == 0 || path.isEmpty())
            continue;
        out.push_back(PortEntry{com, path, path, true, {}});
    }
    return out;
}

namespace {

QString Resolved(const QString& path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? path : canonical;
}

// USB and ACM adapters before on-board UARTs.
int DeviceRank(const QString& path)
{
    const QString name = QFileInfo(path).fileName();
    return (name.startsWith(QLatin1String("ttyUSB")) || name.startsWith(QLatin1String("ttyACM")))
               ? 0
               : 1;
}

// Name order with numbers compared as numbers: ttyUSB2 before ttyUSB10.
bool NaturalLess(const QString& a, const QString& b)
{
    static const QRegularExpression trailing(QStringLiteral("^(.*?)([0-9]+)$"));
    const auto ma = trailing.match(a);
    const auto mb = trailing.match(b);
    if (ma.hasMatch() && mb.hasMatch() && ma.captured(1) == mb.captured(1))
        return ma.captured(2).toLongLong() < mb.captured(2).toLongLong();
    return a < b;
}

}  // namespace

std::vector<PortEntry> BuildPortTable(const std::vector<PortEntry>& fromEnvironment,
                                      const std::vector<PortEntry>& fromFile,
                                      std::vector<FoundDevice> devices)
{
    std::vector<PortEntry> table;
    QSet<int> usedNumbers;
    QSet<QString> usedDevices;
    for (const auto* source : {&fromEnvironment, &fromFile}) {
        for (const PortEntry& e : *source) {
            if (usedNumbers.contains(e.m_nCom))
                continue;
            usedNumbers.insert(e.m_nCom);
            usedDevices.insert(Resolved(e.m_strDevice));
            table.push_back(e);
        }
    }
    std::stable_sort(devices.begin(), devices.end(), [](const FoundDevice& a, const FoundDevice& b) {
        const int ra = DeviceRank(a.m_strPath), rb = DeviceRank(b.m_strPath);
        if (ra != rb)
            return ra < rb;
        return NaturalLess(a.m_strPath, b.m_strPath);
    });
    int next = 1;
    for (const FoundDevice& d : devices) {
        const QString resolved = Resolved(d.m_strPath);
        if (usedDevices.contains(resolved))
            continue;
        usedDevices.insert(resolved);
        while (usedNumbers.contains(next))
            ++next;
        usedNumbers.insert(next);
        table.push_back(PortEntry{next, d.m_strPath,
                                  d.m_strStableName.isEmpty() ? d.m_strPath : d.m_strStableName,
                                  false, d.m_strDescription});
    }
    std::sort(table.begin(), table.end(),
              [](const PortEntry& a, const PortEntry& b) { return a.m_nCom < b.m_nCom; });
    return table;
}

namespace {

QString ProgramDir(const QString& appDir)
{
    if (!appDir.isEmpty())
        return appDir;
    if (!g_strAppDir.isEmpty())
        return g_strAppDir;
    return QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QString();
}

// Resolved device path -> stable /dev/serial/by-id name.
std::map<QString, QString> StableNames()
{
    std::map<QString, QString> names;
    const QDir byId(QStringLiteral("/dev/serial/by-id"));
    for (const QFileInfo& link : byId.entryInfoList(QDir::System | QDir::Files | QDir::NoDotAndDotDot))
        names.emplace(link.canonicalFilePath(), link.absoluteFilePath());
    return names;
}

std::vector<FoundDevice> SystemDevices()
{
    const auto stable = StableNames();
    std::vector<FoundDevice> out;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        FoundDevice d;
        d.m_strPath = info.systemLocation();
        d.m_strDescription = info.description();
        const auto it = stable.find(Resolved(d.m_strPath));
        if (it != stable.end())
            d.m_strStableName = it->second;
        out.push_back(d);
    }
    return out;
}

}  // namespace

namespace {

// The pinned entries: the environment's, then those of the file beside the program.
std::pair<std::vector<PortEntry>, std::vector<PortEntry>> PinnedLists(const QString& appDir)
{
    auto env = ParsePinnedPorts(qEnvironmentVariable(kPortsEnvVar));
    std::vector<PortEntry> file;
    // Beside the program, else (an installed program) in the user's configuration folder.
    const QString name = QString::fromLatin1(kPortsFileName);
    for (const QString& path : {QDir(ProgramDir(appDir)).filePath(name), UserConfigDir() + u'/' + name}) {
        QFile map(path);
        if (!map.open(QIODevice::ReadOnly | QIODevice::Text)) continue;
        file = ParsePinnedPorts(QString::fromUtf8(map.readAll()));
        break;
    }
    return {std::move(env), std::move(file)};
}

}  // namespace

QString PortListText(const PortEntry& e)
{
    QStringList parts{QStringLiteral("COM%1").arg(e.m_nCom)};
    if (!e.m_strDescription.trimmed().isEmpty())
        parts << e.m_strDescription.trimmed();
    parts << e.m_strDisplay;
    return parts.join(QStringLiteral("   "));
}

std::vector<PortEntry> ScanPorts(const QString& appDir)
{
    const auto [env, file] = PinnedLists(appDir);
    return BuildPortTable(env, file, SystemDevices());
}

QString DeviceForPortName(const QString& portName, const QString& appDir)
{
    const int com = ComNumberFromName(portName);
    if (com == 0)
        return QString();
    // A pinned name is found without asking the system for its devices, which takes a while.
    const auto [env, file] = PinnedLists(appDir);
    for (const PortEntry& e : BuildPortTable(env, file, {})) {
        if (e.m_nCom == com)
            return e.m_strDevice;
    }
    for (const PortEntry& e : ScanPorts(appDir)) {
        if (e.m_nCom == com)
            return e.m_strDevice;
    }
    return QString();
}

}  // namespace quillon
