#include "base/SessionPlaces.h"

#include "base/SafeSave.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace quillon {

QString UserConfigDir() {
    // The generic place, not the per-application one: that one would be named after the
    // organisation and application names, which the command-line tool doesn't set.
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/quillon");
}

std::array<QString, 3> SessionFilePlaces(const QString& programDir, const QString& name) {
    return {programDir + name, UserConfigDir() + u'/' + name, QDir::tempPath() + u'/' + name};
}

bool SaveSessionFileAt(const std::array<QString, 3>& places, QByteArrayView bytes) {
    if (!SaveTargetProblem(places[0]).isEmpty()) QDir().mkpath(QFileInfo(places[1]).absolutePath());
    return SaveSessionFile({places[0], places[1], places[2]}, bytes);
}

}  // namespace quillon
