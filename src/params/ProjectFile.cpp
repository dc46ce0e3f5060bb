#include "params/ProjectFile.h"

#include "base/Globals.h"
#include "base/SafeSave.h"
#include "base/TextFile.h"
#include "base/TextTable.h"
#include "params/Archive.h"
#include "params/ModelTable.h"

namespace quillon {
namespace {

// The saved-row flags are stored at row-major positions of the 15 x 100 table: a group with more
// than 100 rows runs on into the next group's entries. A position beyond the table can't be held.
constexpr qint64 kFlagPositions = qint64(kGroupCount) * kRowsPerGroup;

int& FlagAt(FlagTable& table, qint64 position) {
    return table[static_cast<size_t>(position / kRowsPerGroup)]
                [static_cast<size_t>(position % kRowsPerGroup)];
}

void ReadFlags(CArchiveReader& in, CM330Doc& doc) {
    const qint32 groups = in.ReadInt();
    for (qint32 g = 0; g < groups; ++g) {
        const qint32 rows = in.ReadInt();
        for (qint32 r = 0; r < rows; ++r) {
            const qint32 flag = in.ReadInt();
            const qint64 position = qint64(g) * kRowsPerGroup + r;
            if (position >= kFlagPositions)
                throw ArchiveError(
                    QStringLiteral("the file flags row %1 of group %2; a project holds "
                                   "at most %3 groups of %4 rows")
                        .arg(r)
                        .arg(g)
                        .arg(kGroupCount)
                        .arg(kRowsPerGroup));
            FlagAt(doc.m_savedRow, position) = flag;
        }
    }
}

void ReadValues(CArchiveReader& in, CM330Doc& doc) {
    const qint32 groups = in.ReadInt();
    for (qint32 g = 0; g < groups; ++g) {
        const qint32 rows = in.ReadInt();
        for (qint32 r = 0; r < rows; ++r) {
            const QString text = in.ReadText();
            const qint64 position = qint64(g) * kRowsPerGroup + r;
            // Rows the file doesn't flag keep the catalogue's value: gap rows, and rows the
            // catalogue gained after the file was written.
            if (position < kFlagPositions && FlagAt(doc.m_savedRow, position) != 0)
                doc.RowAt(g, r).m_strSetValue = text;
        }
    }
}

}  // namespace

QByteArray WriteProject(const CM330Doc& doc) {
    const SessionState& session = doc.Session();
    CArchiveWriter out;
    out.WriteInt(kProjectFileVersion);
    out.WriteInt(session.m_nModelCode);
    out.WriteText(session.m_strModelName);

    out.WriteInt(static_cast<qint32>(doc.m_groups.size()));
    for (const ParamGroup& group : doc.m_groups) {
        out.WriteInt(static_cast<qint32>(group.m_rows.size()));
        for (const ParamRow& row : group.m_rows) out.WriteInt(row.m_bExists);
    }
    out.WriteInt(static_cast<qint32>(doc.m_groups.size()));
    for (const ParamGroup& group : doc.m_groups) {
        out.WriteInt(static_cast<qint32>(group.m_rows.size()));
        for (const ParamRow& row : group.m_rows) out.WriteText(row.m_strSetValue);
    }

    const GraphSettings& graph = session.m_graphSettings;
    for (int c = 0; c < kGraphChannels; ++c) {
        out.WriteInt(graph.channelIndex[c]);
        out.WriteText(graph.channelName[c]);
        out.WriteText(graph.maximum[c]);
        out.WriteText(graph.minimum[c]);
    }
    out.WriteInt(session.m_nFreqClass);
    out.WriteText(doc.m_printTitles.m_strTitle);
    out.WriteText(doc.m_printTitles.m_strName);
    out.WriteText(doc.m_printTitles.m_strDepartment);
    return out.Bytes();
}

qint32 ReadProject(CM330Doc& doc, QByteArrayView bytes, qsizetype* unread) {
    SessionState& session = doc.Session();
    // The error text is only a record of the last load; nobody shows it.
    doc.m_strLoadError = LoadText(TextId::CantOpenFile);
    doc.m_bApplyToSetValue = 0;

    CArchiveReader in(bytes);
    const qint32 version = in.ReadInt();
    if (unread) *unread = in.Remaining();
    if (version > kProjectFileVersion) {
        // A file of a newer program: the document stays on its catalogue values, silently.
        doc.m_strLoadError = LoadText(TextId::FileVersionTooNew);
        return version;
    }
    g_nFileVersion = version;

    session.m_nModelCode = in.ReadInt();
    session.m_strModelName = in.ReadText();
    // A known name decides the model; an unknown one leaves the file's code in force.
    QString capacity;
    ModelFromName(session.m_strModelName, session.m_nModelCode, capacity);

    // Fresh rows for the file's model; this also clears the saved-row table.
    doc.LoadCatalogue(doc.CataloguePath());
    doc.LoadMotorList(doc.MotorListPath());

    ReadFlags(in, doc);
    ReadValues(in, doc);

    GraphSettings& graph = session.m_graphSettings;
    for (int c = 0; c < kGraphChannels; ++c) {
        graph.channelIndex[c] = in.ReadInt();
        graph.channelName[c] = in.ReadText();
        graph.maximum[c] = in.ReadText();
        graph.minimum[c] = in.ReadText();
    }
    if (in.Remaining() > 0) session.m_nFreqClass = in.ReadInt();
    // The default column follows the frequency class now in force; set values stay as loaded.
    doc.ApplyRatedDefaults(false);
    if (in.Remaining() > 0) {
        PrintTitles titles;
        titles.m_strTitle = in.ReadText();
        titles.m_strName = in.ReadText();
        titles.m_strDepartment = in.ReadText();
        doc.m_printTitles = std::move(titles);
    }
    if (unread) *unread = in.Remaining();
    return version;
}

ProjectOpenResult OpenProjectDocument(CM330Doc& doc, const QString& path) {
    ProjectOpenResult result;
    const auto bytes = ReadSmallFile(path, &result.error);
    if (!bytes) return result;
    qsizetype unread = 0;
    try {
        result.version = ReadProject(doc, *bytes, &unread);
    } catch (const ArchiveError& e) {
        result.error = QString::fromStdString(e.what());
        return result;
    }
    if (result.version > kProjectFileVersion)
        result.unread = doc.m_strLoadError;
    else if (unread > 0)
        result.unread = QStringLiteral("%1 bytes behind the last field").arg(unread);
    doc.LoadInitialTable(CM330Doc::InitialTablePath());
    doc.m_bApplyToSetValue = 1;
    result.ok = true;
    return result;
}

bool SaveProjectDocument(const CM330Doc& doc, const QString& path, QString& error) {
    error = SaveFileAtomically(path, WriteProject(doc));
    return error.isEmpty();
}

}  // namespace quillon
