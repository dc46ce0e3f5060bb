#include "base/PathName.h"

#include <algorithm>

namespace quillon {

QString FileNameOfPath(const QString& path) {
    const qsizetype sep = std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    return sep < 0 ? QString() : path.mid(sep + 1);
}

}  // namespace quillon
