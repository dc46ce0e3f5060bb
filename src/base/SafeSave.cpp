#include "base/SafeSave.h"

#include "base/Prompt.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>
#include <csignal>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace quillon {
namespace {

// The file must reach the disk before it replaces the old one: a write can be taken into the
// page cache and only fail when it is flushed.
QString SyncToDisk([[maybe_unused]] QSaveFile& file) {
#ifdef Q_OS_UNIX
    if (::fsync(file.handle()) != 0) return qt_error_string(errno);
#endif
    return QString();
}

}  // namespace

QString SaveFileAtomically(const QString& path, QByteArrayView bytes) {
    if (const QString problem = SaveTargetProblem(path); !problem.isEmpty()) return problem;
    QSaveFile file(path);
    // Unbuffered, so that each write reaches the system and its failure is seen here; a buffered
    // write that fails when the file is closed would go unnoticed and the short file would still
    // replace the old one.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return file.errorString();
    QString reason;
    for (qsizetype done = 0; done < bytes.size() && reason.isEmpty();) {
        const qint64 written = file.write(bytes.data() + done, bytes.size() - done);
        if (written <= 0)
            reason = file.errorString();
        else
            done += written;
    }
    if (reason.isEmpty()) reason = SyncToDisk(file);
    if (!reason.isEmpty()) {
        file.cancelWriting();
        return reason;
    }
    if (!file.commit()) return file.errorString();
    return QString();
}

QString SaveTargetProblem(const QString& path) {
    const QFileInfo target(path);
    if (target.isDir()) return qt_error_string(EISDIR);
    const QFileInfo folder(target.absolutePath());
    if (!folder.isDir()) return qt_error_string(ENOENT);
    // The temporary file is made in the folder, and an existing file is replaced, not written.
    if (!folder.isWritable()) return qt_error_string(EACCES);
    return QString();
}

QString SaveFailureText(const QString& path, const QString& reason) {
    return QStringLiteral("can't save %1: %2").arg(QDir::toNativeSeparators(path), reason);
}

bool SaveSessionFile(std::initializer_list<QString> places, QByteArrayView bytes) {
    QString firstReason;
    for (const QString& path : places) {
        const QString reason = SaveFileAtomically(path, bytes);
        if (reason.isEmpty()) return true;
        if (firstReason.isEmpty()) firstReason = reason;
    }
    if (places.size() > 0)
        Prompt().Message(SaveFailureText(*places.begin(), firstReason), MessageKind::Error);
    return false;
}

void FailWritesOverTheSizeLimit() {
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

}  // namespace quillon
