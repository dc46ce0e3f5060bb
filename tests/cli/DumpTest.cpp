// quillon-cli dump: a project file as the program reads it, and the messages for bad files.

#include "params/M330Doc.h"
#include "params/ProjectFile.h"
#include "support/ProgramRun.h"
#include "support/TestDirs.h"

#include <QFile>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace quillon;

namespace {

struct DumpRun {
    int code = -1;
    QStringList lines;
    QString err;
};

DumpRun Dump(const QStringList& args, int timeoutMs = 30000) {
    const test::ProgramRun run = test::RunProgram(QStringLiteral(QUILLON_CLI_PATH),
                                                  QStringList{"dump"} + args, timeoutMs);
    return DumpRun{run.code, run.OutLines(), run.err};
}

}  // namespace

TEST(CliDump, PrintsHeaderAndRows) {
    test::TempAppDir dir;
    SessionState s;
    s.m_strAppDir = dir.Path();
    s.m_nModelCode = 402;
    s.m_strModelName = "R770-402-Kxx";
    s.m_nFreqClass = 1;
    CM330Doc doc(s);
    doc.RowAt(0, 3).m_strSetValue = "2";
    doc.RowAt(2, 8).m_strSetValue = "junk";  // a gap row: the catalogue's "0" comes back
    s.m_graphSettings.channelIndex[1] = 2;
    s.m_graphSettings.channelName[1] = "Output Frequency";
    s.m_graphSettings.maximum[1] = "60.00";
    doc.m_printTitles = {"Pump station 4", "Li Wei", "Commissioning"};
    QString error;
    ASSERT_TRUE(SaveProjectDocument(doc, dir.File("p.qpj"), error));

    const DumpRun r = Dump({dir.File("p.qpj")});
    ASSERT_EQ(r.code, 0) << r.err.toStdString();
    EXPECT_TRUE(r.err.isEmpty()) << r.err.toStdString();
    ASSERT_GT(r.lines.size(), 10);
    EXPECT_EQ(r.lines.mid(0, 10),
              (QStringList{"version\t2", "model\t402\tR770-402-Kxx", "freq\t1", "title\tPump station 4",
                           "name\tLi Wei", "department\tCommissioning", "channel\t0\tNo display\t10.00\t0.00",
                           "channel\t2\tOutput Frequency\t60.00\t0.00", "channel\t0\tNo display\t10.00\t0.00",
                           "channel\t0\tNo display\t10.00\t0.00"}));
    // Then the rows as `catalogue` prints them: group, row, exists, code, default, set value.
    const QStringList rows = r.lines.mid(10);
    int count = 0;
    for (const ParamGroup& g : doc.m_groups) count += int(g.m_rows.size());
    EXPECT_EQ(rows.size(), count);
    const auto row = [&rows](int g, int n) {
        const QString prefix = QStringLiteral("%1\t%2\t").arg(g).arg(n);
        for (const QString& line : rows)
            if (line.startsWith(prefix)) return line.split('\t');
        return QStringList();
    };
    EXPECT_EQ(row(0, 3).value(5), "2");
    EXPECT_EQ(row(0, 11).value(4), "60.00");
    EXPECT_EQ(row(2, 8).value(2), "0");
    EXPECT_EQ(row(2, 8).value(5), "0");
    EXPECT_EQ(row(13, 0).value(4), "402");
}

TEST(CliDump, BadFilesFailWithAMessage) {
    test::TempAppDir dir;
    const auto write = [&dir](const char* name, const QByteArray& bytes) {
        dir.Write(name, bytes);
        return dir.File(name);
    };
    struct Case {
        QString path;
        const char* says;
    };
    const QByteArray version3("\x03\x00\x00\x00", 4);
    QByteArray longText("\x02\x00\x00\x00\xC9\x00\x00\x00\x64\x00\x00\x00", 12);
    longText.append(QByteArray(100, 'x'));
    // Not a project at all: the system's reason, at once, also for a pipe nobody writes to.
    ASSERT_EQ(::mkfifo(dir.File("fifo.qpj").toLocal8Bit().constData(), 0600), 0);
    QFile huge(write("huge.qpj", QByteArray()));
    ASSERT_TRUE(huge.resize(17 * 1024 * 1024));
    const Case cases[] = {
        {dir.File("missing.qpj"), "missing.qpj: No such file or directory"},
        {dir.Path(), "Is a directory"},
        {dir.File("fifo.qpj"), "not a regular file"},
        {huge.fileName(), "larger than 16 MB"},
        {write("empty.qpj", QByteArray()), "ends"},
        {write("short.qpj", QByteArray("\x02\x00\x00\x00\xC9\x00", 6)), "ends"},
        {write("long.qpj", longText), "shorter than 100"},
        {write("v3.qpj", version3), "too old"},
    };
    for (const Case& c : cases) {
        const DumpRun r = Dump({c.path}, 10000);
        EXPECT_EQ(r.code, 1) << c.path.toStdString();
        EXPECT_TRUE(r.err.contains(c.says)) << r.err.toStdString();
        EXPECT_TRUE(r.lines.isEmpty()) << c.path.toStdString();
    }
    EXPECT_EQ(Dump({}).code, 2);
    EXPECT_EQ(Dump({"a.qpj", "b.qpj"}).code, 2);
}
