#pragma once
// R770.SPE: the model description file beside the program. Each model starts with a line
// "TYPE:<name>;" (the character behind the name is dropped) and is followed by description
// lines. Names and descriptions form two parallel lists.

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace quillon {

struct ModelSpecList {
    QStringList names;
    QStringList descriptions;  // each line followed by "\r\n"
};

ModelSpecList ParseModelSpec(const QByteArray& bytes);
// A file that can't be opened gives two empty lists.
ModelSpecList ReadModelSpec(const QString& path);

// Index of the first name that begins with `prefix` (case-insensitive, as a drop-down list's own
// prefix search does), or -1.
int FindModelByPrefix(const QStringList& names, const QString& prefix);

}  // namespace quillon
