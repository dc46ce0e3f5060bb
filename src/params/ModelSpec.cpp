#include "params/ModelSpec.h"

#include "base/TextFile.h"
#include "base/TextTable.h"

namespace quillon {

ModelSpecList ParseModelSpec(const QByteArray& bytes) {
    ModelSpecList list;
    const QString typePrefix = LoadText(TextId::TypePrefix);
    const QString text = QString::fromUtf8(bytes);
    bool firstAfterType = true;
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype lf = text.indexOf(u'\n', start);
        const qsizetype next = lf < 0 ? text.size() : lf + 1;
        // The line as read, line feed included, loses its last character.
        QString line = text.mid(start, next - start);
        line.chop(1);
        line = line.trimmed();
        start = next;
        if (line.size() < 5) continue;
        if (line.left(5) == typePrefix) {
            QString name = line.mid(5);
            name.chop(1);
            list.names << name;
            firstAfterType = true;
        } else if (firstAfterType || list.descriptions.isEmpty()) {
            list.descriptions << line + QStringLiteral("\r\n");
            firstAfterType = false;
        } else {
            list.descriptions.last() += line + QStringLiteral("\r\n");
        }
    }
    return list;
}

ModelSpecList ReadModelSpec(const QString& path) {
    auto bytes = ReadSmallFile(path);
    return bytes ? ParseModelSpec(*bytes) : ModelSpecList{};
}

int FindModelByPrefix(const QStringList& names, const QString& prefix) {
    for (int i = 0; i < names.size(); ++i)
        if (names[i].startsWith(prefix, Qt::CaseInsensitive)) return i;
    return -1;
}

}  // namespace quillon
