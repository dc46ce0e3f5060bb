#include "shell/RecentFileList.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

namespace quillon {
namespace {
const QString kSection = QStringLiteral("My Recent File List");
QString Key(int i) { return QString::asprintf("MyFile%d", i + 1); }
}  // namespace

CRecentFileList::CRecentFileList(QString iniPath)
    : m_iniPath(iniPath.isEmpty() ? DefaultIniPath() : std::move(iniPath)) {}

QString CRecentFileList::DefaultIniPath() {
    const QString dir = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    return (dir.isEmpty() ? QDir::homePath() + QStringLiteral("/.config/quillon") : dir) +
           QStringLiteral("/quillon.ini");
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

void CRecentFileList::WriteList() const {
    QSettings settings(m_iniPath, QSettings::IniFormat);
    settings.remove(kSection);
    settings.beginGroup(kSection);
    for (int i = 0; i < Size(); ++i) settings.setValue(Key(i), m_entries[i]);
    settings.endGroup();
    settings.sync();
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
