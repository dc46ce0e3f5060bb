#include "base/TextFile.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>

namespace quillon {

std::optional<QByteArray> ReadSmallFile(const QString& path, QString* why) {
    const auto refuse = [why](const QString& reason) -> std::optional<QByteArray> {
        if (why) *why = reason;
        return std::nullopt;
    };
    const QString tooLarge =
        QStringLiteral("the file is larger than %1 MB").arg(kMaxDataFileBytes / (1024 * 1024));
    // A pipe or a device would hold the open, or the read, for as long as nothing comes: only a
    // regular file is opened.
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return refuse(info.isDir() ? qt_error_string(EISDIR)
                                   : QStringLiteral("not a regular file"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return refuse(file.errorString());
    if (file.size() > kMaxDataFileBytes) return refuse(tooLarge);
    // In pieces, not in one read of the limit: QIODevice::read(n) allocates n bytes up front and
    // the array it returns keeps them, 16 MB for every small file. A file that shows no size (as
    // those of the process file system) is read until it ends or passes the limit.
    constexpr qint64 kPiece = 64 * 1024;
    QByteArray bytes;
    bytes.reserve(file.size());
    for (;;) {
        const QByteArray piece = file.read(kPiece);
        if (piece.isEmpty()) break;
        bytes.append(piece);
        if (bytes.size() > kMaxDataFileBytes) return refuse(tooLarge);
    }
    return bytes;
}

std::vector<QString> SplitTextLines(const QByteArray& bytes) {
    std::vector<QString> lines;
    qsizetype start = 0;
    while (start < bytes.size()) {
        qsizetype lf = bytes.indexOf('\n', start);
        const bool hasLf = lf >= 0;
        if (!hasLf) lf = bytes.size();
        qsizetype end = lf;
        if (hasLf && end > start && bytes[end - 1] == '\r') --end;
        lines.push_back(QString::fromUtf8(bytes.constData() + start, end - start));
        start = lf + 1;
    }
    return lines;
}

std::optional<std::vector<QString>> ReadTextLines(const QString& path) {
    auto bytes = ReadSmallFile(path);
    if (!bytes) return std::nullopt;
    return SplitTextLines(*bytes);
}

}  // namespace quillon
