#pragma once
// Where tests find the data files, and a private copy of the program directory for tests that
// change or remove files.

#include "support/ScopedEnv.h"

#include <QString>
#include <QTemporaryDir>
#include <memory>

namespace quillon::test {

// The directory of the running test executable, where the build puts the data files; with a
// trailing "/".
QString DataDir();

// A temporary program directory holding copies of the data files; removed on destruction.
class TempAppDir {
public:
    TempAppDir();
    QString Path() const;  // with a trailing "/"
    QString File(const QString& name) const { return Path() + name; }
    void Write(const QString& name, const QByteArray& content) const;
    void Remove(const QString& name) const;

private:
    std::unique_ptr<QTemporaryDir> m_dir;
};

// Points the process's temporary directory (TMPDIR, which QDir::tempPath() reads) at a private
// directory for the lifetime of a scope, so that files the program keeps there (curfile.ini,
// the session files' last place) never meet another process's. The user's configuration folder
// (XDG_CONFIG_HOME, the session files' second place) goes to its "config" subfolder, not made yet.
class PrivateTempDir {
public:
    PrivateTempDir();
    ~PrivateTempDir();
    PrivateTempDir(const PrivateTempDir&) = delete;
    PrivateTempDir& operator=(const PrivateTempDir&) = delete;
    QString Path() const;  // without a trailing "/"
    QString ConfigPath() const { return Path() + QStringLiteral("/config"); }

private:
    QTemporaryDir m_dir;
    std::unique_ptr<ScopedEnv> m_tmpEnv, m_configEnv;
};

}  // namespace quillon::test
