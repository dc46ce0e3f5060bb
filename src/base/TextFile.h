#pragma once
// Reading the small text files that lie beside the program as a text-mode stream delivers them:
// lines end at LF, a CR before the LF is part of the line ending, text is UTF-8. Files written
// on either platform read the same.

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

namespace quillon {

// Files beside the program are small; anything larger is not one of ours and is refused.
inline constexpr qint64 kMaxDataFileBytes = 16 * 1024 * 1024;

// The whole file, or nullopt when it can't be read: missing, no permission, not a regular file
// (a folder, a pipe, a device) or larger than the limit. `why`, when given, gets the reason.
std::optional<QByteArray> ReadSmallFile(const QString& path, QString* why = nullptr);

// Lines without their line ending. A last line without LF counts if it is not empty.
std::vector<QString> SplitTextLines(const QByteArray& bytes);

// ReadSmallFile + SplitTextLines.
std::optional<std::vector<QString>> ReadTextLines(const QString& path);

}  // namespace quillon
