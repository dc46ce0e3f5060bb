// The project file: files written by hand from the format's field table, files written by the
// program and read back, and damaged files.

#include "base/Globals.h"
#include "base/TextTable.h"
#include "params/Archive.h"
#include "params/ModelTable.h"
#include "params/ProjectFile.h"
#include "support/ScriptedPrompt.h"
#include "support/TestDirs.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace quillon;
using quillon::test::ScriptedPrompt;
using quillon::test::TempAppDir;

namespace {

// Little-endian i32 and length-prefixed texts, written here without the program's writer.
class FileBuilder {
public:
    FileBuilder& I32(qint32 v) {
        const auto u = static_cast<quint32>(v);
        for (int i = 0; i < 4; ++i) bytes.append(static_cast<char>((u >> (8 * i)) & 0xFF));
        return *this;
    }
    FileBuilder& Text(const QByteArray& text) {
        I32(static_cast<qint32>(text.size()));
        bytes.append(text);
        return *this;
    }
    FileBuilder& Text(const char* text) { return Text(QByteArray(text)); }
    FileBuilder& Channel(qint32 item, const char* name, const char* max, const char* min) {
        return I32(item).Text(name).Text(max).Text(min);
    }
    FileBuilder& DefaultChannels() {
        for (int c = 0; c < 4; ++c) Channel(0, "No display", "10.00", "0.00");
        return *this;
    }
    QByteArray bytes;
};

// A program directory with the data files and a session pointing at it.
struct Fixture {
    Fixture() {
        g_strAppDir = dir.Path();
        g_nFileVersion = 2;
        session.m_strAppDir = dir.Path();
    }
    ~Fixture() { ResetGlobals(); }

    void UseModel(int code, const char* name, int freq) {
        session.m_nModelCode = code;
        session.m_strModelName = QString::fromLatin1(name);
        session.m_nFreqClass = freq;
    }
    QString Write(const QByteArray& bytes, const QString& name = "project.qpj") const {
        dir.Write(name, bytes);
        return dir.File(name);
    }

    TempAppDir dir;
    SessionState session;
};

// A fresh document (as created for an open) that reads `bytes`.
ProjectOpenResult Open(Fixture& f, CM330Doc& doc, const QByteArray& bytes) {
    return OpenProjectDocument(doc, f.Write(bytes));
}

}  // namespace

TEST(ProjectFile, RoundTripKeepsEverySetValueForAllModels) {
    Fixture f;
    int freq = 0;
    for (const ModelRow& model : ModelTable()) {
        SCOPED_TRACE(model.name);
        freq = 1 - freq;
        f.UseModel(model.code, model.name, freq);
        CM330Doc doc(f.session);
        doc.OnNewDocument();
        // Every real row gets a value of its own; gap rows get junk that must not come back.
        for (size_t g = 0; g < doc.m_groups.size(); ++g)
            for (size_t r = 0; r < doc.m_groups[g].m_rows.size(); ++r) {
                ParamRow& row = doc.m_groups[g].m_rows[r];
                row.m_strSetValue = row.m_bExists ? QStringLiteral("%1.%2").arg(g).arg(r, 2, 10, QChar('0'))
                                                  : QStringLiteral("junk");
            }
        f.session.m_graphSettings.channelIndex[2] = 4;
        f.session.m_graphSettings.channelName[2] = "DC Voltage";
        f.session.m_graphSettings.maximum[2] = "800.0";
        doc.m_printTitles = {"Line 3 conveyor", "Ana Souza", "Maintenance"};
        QString error;
        ASSERT_TRUE(SaveProjectDocument(doc, f.dir.File("rt.qpj"), error)) << error.toStdString();

        // Read back in a session that had another model and class.
        SessionState other;
        other.m_strAppDir = f.dir.Path();
        other.m_nFreqClass = 1 - freq;
        CM330Doc loaded(other);
        ScriptedPrompt prompt;  // a good file opens without a word
        const ProjectOpenResult result = OpenProjectDocument(loaded, f.dir.File("rt.qpj"));
        ASSERT_TRUE(result.ok) << result.error.toStdString();
        EXPECT_EQ(result.version, 2);
        EXPECT_EQ(g_nFileVersion, 2);
        EXPECT_EQ(other.m_nModelCode, model.code);
        EXPECT_EQ(other.m_strModelName, model.name);
        EXPECT_EQ(other.m_nFreqClass, freq);
        EXPECT_EQ(other.m_graphSettings.channelIndex[2], 4);
        EXPECT_EQ(other.m_graphSettings.channelName[2], "DC Voltage");
        EXPECT_EQ(other.m_graphSettings.maximum[2], "800.0");
        EXPECT_EQ(other.m_graphSettings.channelName[0], "No display");
        EXPECT_EQ(loaded.m_printTitles.m_strTitle, "Line 3 conveyor");
        EXPECT_EQ(loaded.m_printTitles.m_strName, "Ana Souza");
        EXPECT_EQ(loaded.m_printTitles.m_strDepartment, "Maintenance");
        EXPECT_EQ(loaded.m_bApplyToSetValue, 1);
        ASSERT_EQ(loaded.m_groups.size(), doc.m_groups.size());
        for (size_t g = 0; g < doc.m_groups.size(); ++g)
            for (size_t r = 0; r < doc.m_groups[g].m_rows.size(); ++r) {
                const ParamRow& want = doc.m_groups[g].m_rows[r];
                const ParamRow& got = loaded.RowAt(int(g), int(r));
                EXPECT_EQ(got.m_strSetValue, want.m_bExists ? want.m_strSetValue : QStringLiteral("0"))
                    << g << "-" << r;
                // Defaults are the model's own again: rated values and the initial table; only
                // 02-06 keeps the catalogue's default in a loaded project.
                if (g == 2 && r == 6)
                    EXPECT_EQ(got.m_strDefault, "50.0");
                else
                    EXPECT_EQ(got.m_strDefault, want.m_strDefault) << g << "-" << r;
                EXPECT_EQ(loaded.m_savedRow[g][r], want.m_bExists) << g << "-" << r;
            }
    }
}

TEST(ProjectFile, HandBuiltFileFromTheFieldTableLoads) {
    Fixture f;
    f.UseModel(201, "R770-201-Kxx", 0);
    const QByteArray bytes = FileBuilder()
                                 .I32(1)                   // version
                                 .I32(999)                 // modelCode: the name decides
                                 .Text("R770-402-Kxx")     // modelName
                                 .I32(2)                   // flagGroupCount
                                 .I32(12)                  // group 0: 12 rows
                                 .I32(1).I32(0).I32(0).I32(0).I32(0).I32(0)
                                 .I32(0).I32(0).I32(0).I32(0).I32(0).I32(1)
                                 .I32(3)                   // group 1: 3 rows
                                 .I32(0).I32(1).I32(1)
                                 .I32(2)                   // valueGroupCount
                                 .I32(12)
                                 .Text("7").Text("x").Text("x").Text("x").Text("x").Text("x")
                                 .Text("x").Text("x").Text("x").Text("x").Text("x").Text("55.50")
                                 .I32(3)
                                 .Text("x").Text("1.23").Text("2.34")
                                 .Channel(2, "Output Frequency", "60.00", "0.00")
                                 .Channel(5, "Output Current", "25.0", "0.0")
                                 .Channel(0, "No display", "10.00", "0.00")
                                 .Channel(1, "Set Frequency", "50.00", "-50.00")
                                 .I32(1)                   // freqClass: 60 Hz
                                 .Text("Pump station 4")
                                 .Text("Li Wei")
                                 .Text("Commissioning")
                                 .bytes;
    CM330Doc fresh(f.session);  // the catalogue's values, for the rows the file doesn't flag
    CM330Doc doc(f.session);
    ScriptedPrompt prompt;
    const ProjectOpenResult result = Open(f, doc, bytes);
    ASSERT_TRUE(result.ok) << result.error.toStdString();
    EXPECT_TRUE(prompt.Texts().isEmpty());
    EXPECT_EQ(result.version, 1);
    EXPECT_EQ(g_nFileVersion, 1);
    EXPECT_EQ(f.session.m_nModelCode, 402);
    EXPECT_EQ(f.session.m_strModelName, "R770-402-Kxx");
    EXPECT_EQ(f.session.m_nFreqClass, 1);
    EXPECT_EQ(doc.m_strLoadError, "Can't open the file!");

    EXPECT_EQ(doc.RowAt(0, 0).m_strSetValue, "7");
    EXPECT_EQ(doc.RowAt(0, 1).m_strSetValue, fresh.RowAt(0, 1).m_strSetValue);
    EXPECT_EQ(doc.RowAt(1, 0).m_strSetValue, fresh.RowAt(1, 0).m_strSetValue);
    EXPECT_EQ(doc.RowAt(1, 1).m_strSetValue, "1.23");
    EXPECT_EQ(doc.RowAt(1, 2).m_strSetValue, "2.34");
    EXPECT_EQ(doc.m_savedRow[0][11], 1);
    EXPECT_EQ(doc.m_savedRow[0][1], 0);
    // The default column follows the file's 60 Hz class and model; the saved set value stands.
    EXPECT_EQ(doc.RowAt(0, 11).m_strSetValue, "55.50");
    EXPECT_EQ(doc.RowAt(0, 11).m_strDefault, "60.00");
    EXPECT_EQ(doc.RowAt(2, 3).m_strDefault, "1715");
    EXPECT_EQ(doc.RowAt(13, 0).m_strDefault, "402");
    // Rows behind the file's counts keep the catalogue's values.
    EXPECT_EQ(doc.RowAt(0, 12).m_strSetValue, fresh.RowAt(0, 12).m_strSetValue);
    EXPECT_EQ(doc.RowAt(5, 0).m_strSetValue, fresh.RowAt(5, 0).m_strSetValue);

    const GraphSettings& graph = f.session.m_graphSettings;
    EXPECT_EQ(graph.channelIndex[0], 2);
    EXPECT_EQ(graph.channelName[0], "Output Frequency");
    EXPECT_EQ(graph.maximum[1], "25.0");
    EXPECT_EQ(graph.channelIndex[3], 1);
    EXPECT_EQ(graph.minimum[3], "-50.00");
    EXPECT_EQ(doc.m_printTitles.m_strTitle, "Pump station 4");
    EXPECT_EQ(doc.m_printTitles.m_strName, "Li Wei");
    EXPECT_EQ(doc.m_printTitles.m_strDepartment, "Commissioning");
}

TEST(ProjectFile, WriterProducesExactlyTheFieldTable) {
    Fixture f;
    f.UseModel(1205, "R770-2P5-Kxx", 1);
    CM330Doc doc(f.session);
    doc.OnNewDocument();
    doc.RowAt(0, 3).m_strSetValue = "2";
    f.session.m_graphSettings.channelName[1] = "PID Feedback";
    doc.m_printTitles = {"T", "N", "D"};

    FileBuilder want;
    want.I32(2).I32(1205).Text("R770-2P5-Kxx").I32(static_cast<qint32>(doc.m_groups.size()));
    for (const ParamGroup& g : doc.m_groups) {
        want.I32(static_cast<qint32>(g.m_rows.size()));
        for (const ParamRow& row : g.m_rows) want.I32(row.m_bExists);
    }
    want.I32(static_cast<qint32>(doc.m_groups.size()));
    for (const ParamGroup& g : doc.m_groups) {
        want.I32(static_cast<qint32>(g.m_rows.size()));
        for (const ParamRow& row : g.m_rows) want.Text(row.m_strSetValue.toUtf8());
    }
    want.Channel(0, "No display", "10.00", "0.00").Channel(0, "PID Feedback", "10.00", "0.00");
    want.Channel(0, "No display", "10.00", "0.00").Channel(0, "No display", "10.00", "0.00");
    want.I32(1).Text("T").Text("N").Text("D");
    EXPECT_EQ(WriteProject(doc), want.bytes);
}

TEST(ProjectFile, OptionalTailFields) {
    Fixture f;
    f.UseModel(201, "R770-201-Kxx", 0);
    FileBuilder head;
    head.I32(2).I32(201).Text("R770-201-Kxx").I32(1).I32(1).I32(1).I32(1).I32(1).Text("3").DefaultChannels();

    {
        // Ends behind field 8: the class the frame had stays, the print titles stay as they were.
        f.session.m_nFreqClass = 1;
        CM330Doc doc(f.session);
        doc.m_printTitles.m_strName = "kept";
        const ProjectOpenResult result = Open(f, doc, head.bytes);
        ASSERT_TRUE(result.ok) << result.error.toStdString();
        EXPECT_EQ(f.session.m_nFreqClass, 1);
        EXPECT_EQ(doc.RowAt(0, 11).m_strDefault, "60.00");
        EXPECT_EQ(doc.RowAt(0, 0).m_strSetValue, "3");
        EXPECT_EQ(doc.m_printTitles.m_strTitle, "Parameter Setting List");
        EXPECT_EQ(doc.m_printTitles.m_strName, "kept");
    }
    {
        // Ends behind field 9: the class is read, the titles are not.
        FileBuilder nine = head;
        nine.I32(0);
        CM330Doc doc(f.session);
        const ProjectOpenResult result = Open(f, doc, nine.bytes);
        ASSERT_TRUE(result.ok) << result.error.toStdString();
        EXPECT_EQ(f.session.m_nFreqClass, 0);
        EXPECT_EQ(doc.RowAt(0, 11).m_strDefault, "50.00");
        EXPECT_EQ(doc.m_printTitles.m_strTitle, "Parameter Setting List");
    }
    {
        // Bytes behind field 12 are not looked at.
        FileBuilder full = head;
        full.I32(1).Text("a").Text("b").Text("c").I32(12345).Text("trailing");
        CM330Doc doc(f.session);
        const ProjectOpenResult result = Open(f, doc, full.bytes);
        ASSERT_TRUE(result.ok) << result.error.toStdString();
        EXPECT_EQ(doc.m_printTitles.m_strDepartment, "c");
    }
}

TEST(ProjectFile, NewerVersionOpensSilentlyWithTheCatalogueValues) {
    Fixture f;
    f.UseModel(201, "R770-201-Kxx", 0);
    g_nFileVersion = 1;
    CM330Doc fresh(f.session);
    CM330Doc doc(f.session);
    ScriptedPrompt prompt;  // no message at all
    const QByteArray bytes = FileBuilder().I32(3).I32(402).Text("R770-402-Kxx").I32(1).I32(1).I32(1).bytes;
    const ProjectOpenResult result = Open(f, doc, bytes);
    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.version, 3);
    EXPECT_EQ(doc.m_strLoadError, LoadText(TextId::FileVersionTooNew));
    EXPECT_EQ(g_nFileVersion, 1);
    EXPECT_EQ(f.session.m_nModelCode, 201);
    EXPECT_EQ(f.session.m_strModelName, "R770-201-Kxx");
    for (int g = 0; g < 15; ++g)
        for (size_t r = 0; r < fresh.GroupAt(g).m_rows.size(); ++r)
            EXPECT_EQ(doc.RowAt(g, int(r)).m_strSetValue, fresh.RowAt(g, int(r)).m_strSetValue) << g << "-" << r;
    EXPECT_EQ(doc.m_bApplyToSetValue, 1);
}

TEST(ProjectFile, EveryTruncationFailsCleanlyExceptAtTheOptionalFields) {
    Fixture f;
    f.UseModel(203, "R770-203-Kxx", 1);
    CM330Doc source(f.session);
    source.OnNewDocument();
    source.m_printTitles = {"abc", "de", "f"};
    const QByteArray full = WriteProject(source);
    const qsizetype end9 = full.size() - (4 + 3) - (4 + 2) - (4 + 1);
    const qsizetype end8 = end9 - 4;

    // Every cut in the head and the tail, and a spread of cuts through the rows between.
    std::vector<qsizetype> cuts;
    for (qsizetype size = 0; size < full.size(); ++size)
        if (size < 200 || size > full.size() - 120 || size % 13 == 0) cuts.push_back(size);
    for (qsizetype size : cuts) {
        CM330Doc doc(f.session);
        const ProjectOpenResult result = Open(f, doc, full.left(size));
        if (size == end8 || size == end9) {
            EXPECT_TRUE(result.ok) << "cut at " << size << ": " << result.error.toStdString();
        } else {
            EXPECT_FALSE(result.ok) << "cut at " << size;
            EXPECT_TRUE(result.error.contains("ends")) << result.error.toStdString();
        }
    }
}

TEST(ProjectFile, MalformedCountsAndTextsAreRefusedWithoutReadingPastTheData) {
    Fixture f;
    f.UseModel(201, "R770-201-Kxx", 0);
    const auto head = [] { return FileBuilder().I32(2).I32(201).Text("R770-201-Kxx"); };
    struct Case {
        const char* what;
        QByteArray bytes;
        const char* says;
    };
    const Case cases[] = {
        {"huge group count", head().I32(0x7fffffff).bytes, "ends"},
        {"huge row count", head().I32(1).I32(0x7fffffff).I32(1).I32(1).bytes, "ends"},
        {"flags beyond the 15 x 100 table", head().I32(16).I32(0).I32(0).I32(0).I32(0).I32(0).I32(0).I32(0)
                                                .I32(0).I32(0).I32(0).I32(0).I32(0).I32(0).I32(0).I32(0).I32(1).I32(1).bytes,
         "at most"},
        {"text of 100 bytes", head().I32(0).I32(0).Channel(0, QByteArray(100, 'n').constData(), "1", "0").bytes,
         "100 bytes"},
        {"text of 2^31-1 bytes", FileBuilder().I32(2).I32(201).I32(0x7fffffff).bytes, "shorter than 100"},
        {"negative text length", FileBuilder().I32(2).I32(201).I32(-5).bytes, "negative"},
        {"text longer than the rest of the file", FileBuilder().I32(2).I32(201).I32(50).Text("short").bytes, "ends"},
    };
    for (const Case& c : cases) {
        CM330Doc doc(f.session);
        ScriptedPrompt prompt;
        const ProjectOpenResult result = Open(f, doc, c.bytes);
        EXPECT_FALSE(result.ok) << c.what;
        EXPECT_TRUE(result.error.contains(c.says)) << c.what << ": " << result.error.toStdString();
    }

    // A text of 99 bytes is fine; negative counts mean no entries.
    FileBuilder ok = head();
    ok.I32(-4).I32(-1).Channel(0, QByteArray(99, 'n').constData(), "1", "0");
    for (int c = 0; c < 3; ++c) ok.Channel(0, "No display", "10.00", "0.00");
    CM330Doc doc(f.session);
    const ProjectOpenResult result = Open(f, doc, ok.bytes);
    ASSERT_TRUE(result.ok) << result.error.toStdString();
    EXPECT_EQ(f.session.m_graphSettings.channelName[0], QString(99, 'n'));
}

TEST(ProjectFile, CatalogueWinsOverTheFile) {
    Fixture f;
    f.UseModel(201, "R770-201-Kxx", 0);
    {
        // A flag in a row the catalogue doesn't have is the range failure.
        const QByteArray bytes = FileBuilder()
                                     .I32(2).I32(201).Text("R770-201-Kxx")
                                     .I32(3).I32(0).I32(0).I32(9)  // group 2: rows 0..8
                                     .I32(0).I32(0).I32(0).I32(0).I32(0).I32(0).I32(0).I32(0).I32(1)
                                     .I32(3).I32(0).I32(0).I32(9)
                                     .Text("").Text("").Text("").Text("").Text("").Text("").Text("").Text("").Text("1")
                                     .DefaultChannels().bytes;
        // Group 2 of the catalogue ends at 02-15: row 8 is a gap row and exists as a row, so it
        // loads; a row 40 does not exist.
        CM330Doc doc(f.session);
        ASSERT_TRUE(Open(f, doc, bytes).ok);
        EXPECT_EQ(doc.RowAt(2, 8).m_strSetValue, "1");

        FileBuilder beyond;
        beyond.I32(2).I32(201).Text("R770-201-Kxx").I32(3).I32(0).I32(0).I32(41);
        for (int r = 0; r < 41; ++r) beyond.I32(r == 40 ? 1 : 0);
        beyond.I32(3).I32(0).I32(0).I32(41);
        for (int r = 0; r < 41; ++r) beyond.Text("5");
        beyond.DefaultChannels();
        CM330Doc doc2(f.session);
        try {
            Open(f, doc2, beyond.bytes);
            ADD_FAILURE() << "no range failure";
        } catch (const std::out_of_range& e) {
            EXPECT_STREQ(e.what(), "invalid vector<T> subscript");
        }
    }
    {
        // A name not in the model table leaves the file's code in force.
        const QByteArray bytes = FileBuilder().I32(2).I32(4242).Text("R770-999-Kxx").I32(0).I32(0)
                                     .DefaultChannels().bytes;
        CM330Doc doc(f.session);
        ASSERT_TRUE(Open(f, doc, bytes).ok);
        EXPECT_EQ(f.session.m_nModelCode, 4242);
        EXPECT_EQ(f.session.m_strModelName, "R770-999-Kxx");
    }
}

TEST(ProjectFile, WriterCutsLongTextsAtACharacterBoundary) {
    EXPECT_EQ(ArchiveTextBytes(QString(120, 'a')).size(), 99);
    EXPECT_EQ(ArchiveTextBytes(QString(40, QChar(0x53C2))), QString(33, QChar(0x53C2)).toUtf8());  // 3 bytes each
    EXPECT_EQ(ArchiveTextBytes(QStringLiteral("a") + QString(40, QChar(0x53C2))).size(), 97);
    EXPECT_EQ(ArchiveTextBytes(QStringLiteral("short")), QByteArray("short"));

    Fixture f;
    f.UseModel(201, "R770-201-Kxx", 0);
    CM330Doc doc(f.session);
    doc.m_printTitles.m_strTitle = QString(50, QChar(0x53C2));
    doc.m_printTitles.m_strDepartment = QString(150, 'd');
    CM330Doc loaded(f.session);
    const ProjectOpenResult result = Open(f, loaded, WriteProject(doc));
    ASSERT_TRUE(result.ok) << result.error.toStdString();
    EXPECT_EQ(loaded.m_printTitles.m_strTitle, QString(33, QChar(0x53C2)));
    EXPECT_EQ(loaded.m_printTitles.m_strDepartment, QString(99, 'd'));
}

TEST(ProjectFile, SaveReplacesTheFileWholeAndFailsCleanly) {
    Fixture f;
    f.UseModel(201, "R770-201-Kxx", 0);
    CM330Doc doc(f.session);
    const QString path = f.dir.File("p.qpj");
    f.dir.Write("p.qpj", QByteArray(100000, 'z'));
    QString error;
    ASSERT_TRUE(SaveProjectDocument(doc, path, error)) << error.toStdString();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), WriteProject(doc));
    // No temporary file is left beside it.
    EXPECT_EQ(QDir(f.dir.Path()).entryList({"p.qpj*"}, QDir::Files), QStringList{"p.qpj"});

    EXPECT_FALSE(SaveProjectDocument(doc, f.dir.File("no such folder/p.qpj"), error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(OpenProjectDocument(doc, f.dir.File("missing.qpj")).ok);
}
