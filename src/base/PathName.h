#pragma once
// The file name of a project path: the part behind the last separator, "/" or "\" (paths that
// come from a Windows machine keep working); empty when the path has no separator at all.

#include <QString>

namespace quillon {

QString FileNameOfPath(const QString& path);

}  // namespace quillon
