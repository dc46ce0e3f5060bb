#include "CliCommand.h"

#include "base/SessionState.h"
#include "params/M330Doc.h"
#include "params/ProjectFile.h"

#include <cstdio>
#include <stdexcept>

namespace quillon::cli {

std::unique_ptr<CM330Doc> OpenProjectFile(const char* command, const QString& path,
                                          SessionState& session, qint32* version) {
    auto failed = [&](const QString& why) {
        std::fprintf(stderr, "quillon-cli: %s: %s: %s\n", command, path.toUtf8().constData(),
                     why.toUtf8().constData());
        return nullptr;
    };
    auto doc = std::make_unique<CM330Doc>(session);
    ProjectOpenResult result;
    try {
        result = OpenProjectDocument(*doc, path);
    } catch (const std::out_of_range&) {
        return failed(QStringLiteral("the file keeps values for rows the catalogue beside the "
                                     "program doesn't have"));
    }
    if (!result.ok) return failed(result.error);
    if (result.version > kProjectFileVersion) return failed(doc->m_strLoadError);
    if (version) *version = result.version;
    return doc;
}

}  // namespace quillon::cli
