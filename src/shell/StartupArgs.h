#pragma once
// The command line: one project path, possibly followed by "/dde" (the shell adds it when it
// opens a project by its file type). The four characters are cut off; a path that remains is
// opened at start. No path, no project: start-up never creates an empty one.

#include <QString>
#include <QStringList>

namespace quillon {

// `args` as QCoreApplication::arguments() gives them (program first). Empty: open nothing.
QString StartupProjectPath(const QStringList& args);

}  // namespace quillon
