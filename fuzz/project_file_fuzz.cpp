// Project file reader. Any bytes either open (as the document's open does: the file, then the
// initial table), or fail with the archive error or the range failure; nothing else may happen.
// What opens must survive a save and a second open: the file we write of it opens again and
// gives back the same model, frequency class, graph curves, print titles, defaults and the set
// value of every catalogue row.
#include "base/Globals.h"
#include "base/SessionState.h"
#include "base/TextFile.h"
#include "params/Archive.h"
#include "params/CatalogueReader.h"
#include "params/M330Doc.h"
#include "params/ProjectFile.h"

#include <QFileInfo>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace {

using namespace quillon;

// Filled once: the program directory (the build copies the data files beside the fuzzer) and
// the parsed initial table, so that an input costs one catalogue load per open and no more.
QString g_dir;
std::vector<InitRecord> g_initTable;

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "project file round trip: %s\n", what);
    std::abort();
}

// A text as it comes back from a file we wrote: cut to the format's limit.
QString Stored(const QString& text) { return QString::fromUtf8(ArchiveTextBytes(text)); }

// A session and its document as the open of a project finds them. Built once: the reader
// reloads the catalogue and the motor list itself, so between inputs only what it may leave
// alone (the session's fields, the print titles) has to be put back.
struct Opened {
    Opened() : session(FreshSession()), doc(session) {}
    static SessionState FreshSession() {
        SessionState s;
        s.m_strAppDir = g_dir;
        return s;
    }
    void Reset() {
        session = FreshSession();
        doc.m_printTitles = PrintTitles{};
    }
    SessionState session;
    CM330Doc doc;
};

std::unique_ptr<Opened> g_first;
std::unique_ptr<Opened> g_again;

// The document side of an open, as OpenProjectDocument does it, without the file system. Throws
// what the reader throws; returns the file's version.
qint32 Open(Opened& o, QByteArrayView bytes) {
    o.Reset();
    const qint32 version = ReadProject(o.doc, bytes);
    o.doc.m_initTable = g_initTable;
    o.doc.ApplyInitialTable();
    o.doc.m_bApplyToSetValue = 1;
    return version;
}

void CheckSameProject(const Opened& first, const Opened& again) {
    const SessionState& a = first.session;
    const SessionState& b = again.session;
    if (a.m_nModelCode != b.m_nModelCode) Fail("model code");
    if (Stored(a.m_strModelName) != b.m_strModelName) Fail("model name");
    if (a.m_nFreqClass != b.m_nFreqClass) Fail("frequency class");
    for (int c = 0; c < kGraphChannels; ++c) {
        const GraphSettings& ga = a.m_graphSettings;
        const GraphSettings& gb = b.m_graphSettings;
        if (ga.channelIndex[c] != gb.channelIndex[c] ||
            Stored(ga.channelName[c]) != gb.channelName[c] ||
            Stored(ga.maximum[c]) != gb.maximum[c] || Stored(ga.minimum[c]) != gb.minimum[c])
            Fail("graph curve");
    }
    const PrintTitles& ta = first.doc.m_printTitles;
    const PrintTitles& tb = again.doc.m_printTitles;
    if (Stored(ta.m_strTitle) != tb.m_strTitle || Stored(ta.m_strName) != tb.m_strName ||
        Stored(ta.m_strDepartment) != tb.m_strDepartment)
        Fail("print titles");

    const auto& ga = first.doc.m_groups;
    const auto& gb = again.doc.m_groups;
    if (ga.size() != gb.size()) Fail("group count");
    for (size_t g = 0; g < ga.size(); ++g) {
        if (ga[g].m_rows.size() != gb[g].m_rows.size()) Fail("row count");
        for (size_t r = 0; r < ga[g].m_rows.size(); ++r) {
            const ParamRow& ra = ga[g].m_rows[r];
            const ParamRow& rb = gb[g].m_rows[r];
            if (ra.m_bExists != rb.m_bExists || ra.m_strDefault != rb.m_strDefault)
                Fail("catalogue row");
            // Gap rows are not kept: they come back with the catalogue's value.
            if (ra.m_bExists && Stored(ra.m_strSetValue) != rb.m_strSetValue) Fail("set value");
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const QString exe = QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget();
    g_dir = QFileInfo(exe).absolutePath() + u'/';
    const auto lines = ReadTextLines(g_dir + QLatin1String(kInitialTableFile));
    const auto catalogue = ReadTextLines(g_dir + QLatin1String(kCatalogueFile));
    if (!lines || !catalogue) {
        std::fprintf(stderr, "the data files are not beside the fuzzer in %s\n", qPrintable(g_dir));
        std::abort();
    }
    g_initTable = ParseInitialTable(*lines);
    g_strAppDir = g_dir;
    g_first = std::make_unique<Opened>();
    g_again = std::make_unique<Opened>();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ResetGlobals();
    g_strAppDir = g_dir;
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));

    Opened& first = *g_first;
    qint32 version = 0;
    try {
        version = Open(first, bytes);
    } catch (const ArchiveError&) {
        return 0;
    } catch (const std::out_of_range&) {
        return 0;
    }
    // A file of a newer version leaves the document as created; there is nothing to compare.
    if (version > kProjectFileVersion) return 0;

    const QByteArray saved = WriteProject(first.doc);
    Opened& again = *g_again;
    try {
        Open(again, saved);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        Fail("the file we wrote does not open");
    }
    CheckSameProject(first, again);
    return 0;
}
