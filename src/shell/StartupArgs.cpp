#include "shell/StartupArgs.h"

namespace quillon {

QString StartupProjectPath(const QStringList& args) {
    static const QString kDde = QStringLiteral("/dde");
    for (qsizetype i = 1; i < args.size(); ++i) {
        QString arg = args[i];
        if (arg.endsWith(kDde)) arg.chop(kDde.size());
        arg = arg.trimmed();
        // The first argument that is left is the file name; a bare "/dde" names none.
        if (!arg.isEmpty()) return arg;
    }
    return {};
}

}  // namespace quillon
