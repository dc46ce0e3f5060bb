#include "shell/RecentFileList.h"

#include "base/SafeSave.h"
#include "base/SessionPlaces.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QUrl>
#include <algorithm>

namespace quillon {
namespace {
const QString kSection = QStringLiteral("My Recent File List");
QString Key(int i) { return QString::asprintf("MyFile%d", i + 1); }

// A value as the INI reader takes it back whole. A plain path is written as it stands; anything
// else is quoted, so that commas, semicolons and blanks at either end stay, with a backslash, a
// quote and line breaks escaped and a leading "@", which would mark a typed value, doubled.
QByteArray IniValue(const QString& value) {
    const auto plain = [](QChar c) {
        return (c.unicode() < 128 && c.isLetterOrNumber()) || QStringView(u"/._-:+~").contains(c);
    };
    if (!value.isEmpty() && std::all_of(value.begin(), value.end(), plain)) return value.toLatin1();
    QByteArray out = value.startsWith(u'@') ? "\"@" : "\"";
    for (const char c : value.toUtf8()) {
        if (c == '\n' || c == '\r') {
            out += c == '\n' ? "\\n" : "\\r";
            continue;
        }
        if (c == '"' || c == '\\') out += '\\';
        out += c;
    }
    return out + '"';
}
}  // namespace

CRecentFileList::CRecentFileList(QString iniPath)
    : m_iniPath(iniPath.isEmpty() ? DefaultIniPath() : std::move(iniPath)) {}

QString CRecentFileList::DefaultIniPath() {
    // Beside the session files of an installed program, so one folder holds all the user's
    // settings of this program.
    return UserConfigDir() + QStringLiteral("/quillon.ini");
}

void CRecentFileList::ReadList() {
    QSettings settings(m_iniPath, QSettings::IniFormat);
    settings.beginGroup(kSection);
    m_entries.clear();
    for (int i = 0; i < kSize; ++i) {
        const QString path = settings.value(Key(i)).toString();
        if (!path.isEmpty()) m_entries << path;
    }
}

bool CRecentFileList::WriteList() const {
    // The file holds this list alone, so it is written whole, the way every file of ours is saved.
    QByteArray text = "[" + QUrl::toPercentEncoding(kSection) + "]\n";
    for (int i = 0; i < Size(); ++i)
        text += Key(i).toLatin1() + '=' + IniValue(m_entries[i]) + '\n';
    QDir().mkpath(QFileInfo(m_iniPath).absolutePath());
    return SaveSessionFile({m_iniPath}, text);
}

void CRecentFileList::Add(const QString& path) {
    if (path.isEmpty()) return;
    m_entries.removeAll(path);
    m_entries.prepend(path);
    while (m_entries.size() > kSize) m_entries.removeLast();
}

void CRecentFileList::Remove(int index) {
    if (index >= 0 && index < Size()) m_entries.removeAt(index);
}

void CRecentFileList::Remove(const QString& path) { m_entries.removeAll(path); }

QString CRecentFileList::At(int index) const {
    return index >= 0 && index < Size() ? m_entries[index] : QString();
}

QString CRecentFileList::DisplayName(int index) const {
    const QString path = QDir::toNativeSeparators(At(index));
    if (path.size() <= kDisplayLength) return path;
    // Keep the file name whole and as much of the folder as fits, with "..." in front.
    return QStringLiteral("...") + path.right(kDisplayLength - 3);
}

}  // namespace quillon
