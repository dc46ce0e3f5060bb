#include "base/DataFiles.h"

#include <QDir>
#include <QFileInfo>

#ifndef QUILLON_RELATIVE_DATA_DIR
#error "the build names the installed data folder (QUILLON_RELATIVE_DATA_DIR)"
#endif

namespace quillon {

QString InstalledDataDir(const QString& programDir) {
    return QDir::cleanPath(QDir(programDir).filePath(QStringLiteral(QUILLON_RELATIVE_DATA_DIR))) + u'/';
}

QString DataFilePath(const QString& programDir, const QString& name) {
    const QString beside = programDir + name;
    if (QFileInfo::exists(beside)) return beside;
    const QString installed = InstalledDataDir(programDir);
    return QFileInfo(installed).isDir() ? installed + name : beside;
}

QString DataFolderOf(const QString& programDir, const QString& name) {
    return QFileInfo(DataFilePath(programDir, name)).absolutePath() + u'/';
}

}  // namespace quillon
