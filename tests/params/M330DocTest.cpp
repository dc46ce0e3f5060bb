// A project document brought to life from the real data files.

#include "base/Globals.h"
#include "base/TextFile.h"
#include "params/M330Doc.h"
#include "support/ScriptedPrompt.h"
#include "support/TestDirs.h"

#include <gtest/gtest.h>

using namespace quillon;
using quillon::test::ScriptedPrompt;
using quillon::test::TempAppDir;

namespace {

SessionState SessionFor(const QString& dir, int code, const QString& name, int freq) {
    SessionState s;
    s.m_strAppDir = dir;
    s.m_nModelCode = code;
    s.m_strModelName = name;
    s.m_nFreqClass = freq;
    return s;
}

// Value of record `record`, column `column` of IntialParam.DAT, read here without the
// program's own reader.
QString InitialValue(const QString& dir, int record, int column) {
    const auto lines = ReadTextLines(dir + "IntialParam.DAT");
    if (!lines || record >= static_cast<int>(lines->size())) return "<missing>";
    const QString line = (*lines)[record];
    return line.mid(line.indexOf(':') + 1).split(',').value(column, "<missing>");
}

}  // namespace

TEST(M330Doc, CheckedAccessorsRaiseTheRangeFailure) {
    TempAppDir dir;
    SessionState s = SessionFor(dir.Path(), 1205, "R770-2P5-Kxx", 0);
    CM330Doc doc(s);
    for (auto access : {+[](CM330Doc& d) { d.GroupAt(15); }, +[](CM330Doc& d) { d.GroupAt(-1); },
                        +[](CM330Doc& d) { d.RowAt(0, 100); }}) {
        try {
            access(doc);
            ADD_FAILURE() << "no range failure";
        } catch (const std::out_of_range& e) {
            EXPECT_STREQ(e.what(), "invalid vector<T> subscript");
        }
    }
}

TEST(M330Doc, MissingDataFiles) {
    TempAppDir dir;
    g_strAppDir = dir.Path();
    {
        // No initial table: one message, the rows keep their catalogue and rated values.
        dir.Remove("IntialParam.DAT");
        SessionState s = SessionFor(dir.Path(), 201, "R770-201-Kxx", 0);
        CM330Doc doc(s);
        const QString before = doc.RowAt(1, 1).m_strDefault;
        ScriptedPrompt prompt;
        doc.OnNewDocument();
        EXPECT_EQ(prompt.Messages(), QStringList{"Can't open the file!"});
        EXPECT_EQ(doc.RowAt(1, 1).m_strDefault, before);
    }
    {
        // No motor list: an empty list and no message.
        dir.Remove("R770MOTORPARAM.DAT");
        SessionState s = SessionFor(dir.Path(), 201, "R770-201-Kxx", 0);
        ScriptedPrompt prompt;
        CM330Doc doc(s);
        EXPECT_TRUE(doc.m_motorList.empty());
        EXPECT_TRUE(prompt.Texts().isEmpty());
    }
    {
        // No catalogue: the rated overlay runs into the range failure.
        dir.Remove("PARAM.DAT");
        SessionState s = SessionFor(dir.Path(), 201, "R770-201-Kxx", 0);
        EXPECT_THROW(CM330Doc doc(s), std::out_of_range);
    }
}

TEST(M330Doc, ShortInitialTableIsARangeFailure) {
    TempAppDir dir;
    g_strAppDir = dir.Path();
    dir.Write("IntialParam.DAT", "a:1,2,3\nb:4,5,6\nEND\n");
    SessionState s = SessionFor(dir.Path(), 201, "R770-201-Kxx", 0);
    CM330Doc doc(s);
    EXPECT_THROW(doc.OnNewDocument(), std::out_of_range);
}

TEST(M330Doc, ReloadRebuildsRowsAndKeepsSetValuesOnlyThroughTheOverlay) {
    TempAppDir dir;
    g_strAppDir = dir.Path();
    SessionState s = SessionFor(dir.Path(), 201, "R770-201-Kxx", 0);
    CM330Doc doc(s);
    doc.OnNewDocument();
    doc.SetSetValue(0, 0, "edited", RowMark::Changed);
    doc.SetReadValue(0, 0, "read");

    // A read found model 402: the rows come back from the catalogue for that model.
    s.m_nModelCode = 402;
    s.m_strModelName = "R770-402-Kxx";
    doc.ReloadCatalogue();
    doc.ApplyRatedDefaults(false);
    EXPECT_NE(doc.RowAt(0, 0).m_strSetValue, "edited");
    EXPECT_TRUE(doc.RowAt(0, 0).m_strReadValue.isEmpty());
    EXPECT_FALSE(doc.RowChanged(0, 0));
    EXPECT_EQ(doc.RowAt(1, 1).m_strDefault, InitialValue(dir.Path(), 0, 24));
    EXPECT_EQ(doc.RowAt(13, 0).m_strDefault, "402");
}

