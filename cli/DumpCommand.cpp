// quillon-cli dump FILE.qpj: what a project file holds, read the way the program opens it: the
// header, then every row of the document in the form of `catalogue`.

#include "CliCommand.h"
#include "CliPrompt.h"

#include "base/Globals.h"
#include "base/TextTable.h"
#include "params/M330Doc.h"
#include "params/ProjectFile.h"

#include <cstdio>

namespace quillon::cli {

CliPrompt& TheCliPrompt();

int RunDump(const QStringList& args, QTextStream& out) {
    if (args.size() != 1 || args[0].startsWith(QLatin1String("--")))
        return UsageError(QStringLiteral("dump: give exactly one project file"));
    const QString path = args[0];

    SessionState session;
    session.m_strAppDir = g_strAppDir;
    const int messagesBefore = TheCliPrompt().MessageCount();
    qint32 version = 0;
    const std::unique_ptr<CM330Doc> opened = OpenProjectFile("dump", path, session, &version);
    if (!opened) return kExitFailed;
    const CM330Doc& doc = *opened;

    const GraphSettings& graph = session.m_graphSettings;
    out << "version\t" << version << '\n'
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
