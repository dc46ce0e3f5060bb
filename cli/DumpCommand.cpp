// quillon-cli dump FILE.qpj: what a project file holds, read the way the program opens it: the
// header, then every row of the document in the form of `catalogue`.

#include "CliCommand.h"
#include "CliPrompt.h"

#include "base/Globals.h"
#include "base/TextTable.h"
#include "params/M330Doc.h"
#include "params/ProjectFile.h"

#include <cstdio>
#include <stdexcept>

namespace quillon::cli {

CliPrompt& TheCliPrompt();

namespace {
int Failed(const QString& path, const QString& why) {
    std::fprintf(stderr, "quillon-cli: dump: %s: %s\n", path.toUtf8().constData(),
                 why.toUtf8().constData());
    return kExitFailed;
}
}  // namespace

int RunDump(const QStringList& args, QTextStream& out) {
    if (args.size() != 1 || args[0].startsWith(QLatin1String("--")))
        return UsageError(QStringLiteral("dump: give exactly one project file"));
    const QString path = args[0];

    SessionState session;
    session.m_strAppDir = g_strAppDir;
    const int messagesBefore = TheCliPrompt().MessageCount();
    CM330Doc doc(session);
    ProjectOpenResult result;
    try {
        result = OpenProjectDocument(doc, path);
    } catch (const std::out_of_range&) {
        return Failed(path,
                      QStringLiteral("the file keeps values for rows the catalogue beside the "
                                     "program doesn't have"));
    }
    if (!result.ok) return Failed(path, result.error);
    if (result.version > kProjectFileVersion) return Failed(path, doc.m_strLoadError);

    const GraphSettings& graph = session.m_graphSettings;
    out << "version\t" << result.version << '\n'
        << "model\t" << session.m_nModelCode << '\t' << session.m_strModelName << '\n'
        << "freq\t" << session.m_nFreqClass << '\n'
        << "title\t" << doc.m_printTitles.m_strTitle << '\n'
        << "name\t" << doc.m_printTitles.m_strName << '\n'
        << "department\t" << doc.m_printTitles.m_strDepartment << '\n';
    for (int c = 0; c < kGraphChannels; ++c)
        out << "channel\t" << graph.channelIndex[c] << '\t' << graph.channelName[c] << '\t'
            << graph.maximum[c] << '\t' << graph.minimum[c] << '\n';
    PrintRows(doc, out);
    // A message on the way (the initial table missing) means the defaults are not the program's.
    return TheCliPrompt().MessageCount() == messagesBefore ? kExitOk : kExitFailed;
}

}  // namespace quillon::cli
