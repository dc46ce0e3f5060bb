#include "support/TestDirs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace quillon::test {

QString DataDir() {
    // /proc/self/exe works before any QCoreApplication exists.
    const QString exe = QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget();
    return QFileInfo(exe).absolutePath() + u'/';
}

TempAppDir::TempAppDir() : m_dir(std::make_unique<QTemporaryDir>()) {
    EXPECT_TRUE(m_dir->isValid());
    const QDir source(QStringLiteral(QUILLON_SOURCE_DATA_DIR));
    for (const QString& name : source.entryList(QDir::Files))
        QFile::copy(source.filePath(name), m_dir->filePath(name));
}

QString TempAppDir::Path() const { return m_dir->path() + u'/'; }

void TempAppDir::Write(const QString& name, const QByteArray& content) const {
    QFile file(File(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}

PrivateTempDir::PrivateTempDir() {
    EXPECT_TRUE(m_dir.isValid());
    m_tmpEnv = std::make_unique<ScopedEnv>("TMPDIR", QFile::encodeName(m_dir.path()));
    m_configEnv = std::make_unique<ScopedEnv>("XDG_CONFIG_HOME", QFile::encodeName(ConfigPath()));
}

PrivateTempDir::~PrivateTempDir() = default;

QString PrivateTempDir::Path() const { return m_dir.path(); }

void TempAppDir::Remove(const QString& name) const { QFile::remove(File(name)); }

}  // namespace quillon::test
