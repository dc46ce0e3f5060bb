#pragma once
// The list of recent projects shown in the File menu: 8 entries, newest first, kept in an INI
// file under the section "My Recent File List" with the keys MyFile1..MyFile8.

#include <QString>
#include <QStringList>

namespace quillon {

class CRecentFileList {
public:
    static constexpr int kSize = 8;
    static constexpr int kDisplayLength = 30;

    // `iniPath`: the settings file; empty for the program's standard place.
    explicit CRecentFileList(QString iniPath = {});

    void ReadList();
    // Saves the list all or nothing; a failure is told to the person (SaveSessionFile).
    bool WriteList() const;

    // Puts `path` at the top; an entry already there moves up, the oldest falls off.
    void Add(const QString& path);
    void Remove(int index);
    void Remove(const QString& path);

    int Size() const { return static_cast<int>(m_entries.size()); }
    QString At(int index) const;  // empty for an index without an entry
    // The menu text of an entry: the path cut to 30 characters, keeping its end.
    QString DisplayName(int index) const;

    const QString& IniPath() const { return m_iniPath; }
    static QString DefaultIniPath();

private:
    QString m_iniPath;
    QStringList m_entries;
};

}  // namespace quillon
