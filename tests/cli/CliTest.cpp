// quillon-cli as a person runs it: output, messages and exit codes.

#include "base/TextFile.h"
#include "support/ProgramRun.h"
#include "support/TestDirs.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

using quillon::test::ProgramRun;

ProgramRun Cli(const QStringList& args, const QString& program = QStringLiteral(QUILLON_CLI_PATH)) {
    return quillon::test::RunProgram(program, args);
}

QStringList Row(const ProgramRun& r, int group, int row) {
    const QString prefix = QStringLiteral("%1\t%2\t").arg(group).arg(row);
    for (const QString& line : r.out.split('\n'))
        if (line.startsWith(prefix)) return line.split('\t');
    return {};
}

}  // namespace

TEST(Cli, CatalogueShowsRatedAndModelValuesOfANewProject) {
    const ProgramRun r = Cli({"catalogue", "--model", "201", "--freq", "1"});
    ASSERT_EQ(r.code, 0) << r.err.toStdString();
    EXPECT_TRUE(r.err.isEmpty()) << r.err.toStdString();
    const QStringList base = Row(r, 0, 11);
    ASSERT_EQ(base.size(), 6);
    EXPECT_EQ(base[2], "1");
    EXPECT_TRUE(base[3].startsWith("00-11"));
    EXPECT_EQ(base[4], "60.00");
    EXPECT_EQ(base[5], "60.00");

    // 01-01 comes from the first record of the initial table, column 17 for model 201.
    const auto lines = quillon::ReadTextLines(quillon::test::DataDir() + "IntialParam.DAT");
    ASSERT_TRUE(lines && !lines->empty());
    const QString expected = lines->front().section(':', 1).split(',').value(17);
    const QStringList voltage = Row(r, 1, 1);
    ASSERT_EQ(voltage.size(), 6);
    EXPECT_EQ(voltage[4], expected);
    EXPECT_EQ(voltage[5], expected);
    EXPECT_EQ(Row(r, 13, 0).value(5), "201");

    // Every row of all 15 groups is there, gap rows included.
    const QStringList fifty = Row(Cli({"catalogue", "--model", "201"}), 0, 11);
    EXPECT_EQ(fifty.value(4), "50.00");
}

TEST(Cli, BadArgumentsExitWithTwoAndSayWhy) {
    struct Case {
        QStringList args;
        const char* says;
    };
    for (const Case& c : {Case{{"catalogue"}, "--model"}, Case{{"catalogue", "--model"}, "needs a value"},
                          Case{{"catalogue", "--model", "999"}, "999"},
                          Case{{"catalogue", "--model", "abc"}, "abc"},
                          Case{{"catalogue", "--model", "201", "--freq", "2"}, "--freq"},
                          Case{{"catalogue", "--model", "201", "--colour", "red"}, "--colour"},
                          Case{{"frobnicate"}, "frobnicate"}}) {
        const ProgramRun r = Cli(c.args);
        EXPECT_EQ(r.code, 2) << c.args.join(' ').toStdString();
        EXPECT_TRUE(r.err.contains(c.says)) << r.err.toStdString();
        EXPECT_TRUE(r.out.isEmpty());
    }
    const ProgramRun help = Cli({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_TRUE(help.out.contains("catalogue --model CODE"));
}

TEST(Cli, MissingDataFilesFailWithAMessage) {
    // A copy of the program in a directory of its own, without the data files.
    quillon::test::TempAppDir dir;
    for (const char* name : {"PARAM.DAT", "IntialParam.DAT"}) dir.Remove(name);
    const QString copy = dir.File("quillon-cli");
    ASSERT_TRUE(QFile::copy(QStringLiteral(QUILLON_CLI_PATH), copy));
    QFile::setPermissions(copy, QFile::permissions(copy) | QFile::ExeOwner);

    const ProgramRun r = Cli({"catalogue", "--model", "201"}, copy);
    EXPECT_EQ(r.code, 1);
    EXPECT_TRUE(r.err.contains("Some a file lost,please setup Quillon again.")) << r.err.toStdString();

    // With the catalogue back but no initial table: the rows print, the message says why it failed.
    ASSERT_TRUE(QFile::copy(QStringLiteral(QUILLON_SOURCE_DATA_DIR "/PARAM.DAT"), dir.File("PARAM.DAT")));
    const ProgramRun partial = Cli({"catalogue", "--model", "201"}, copy);
    EXPECT_EQ(partial.code, 1);
    EXPECT_TRUE(partial.err.contains("Can't open the file!")) << partial.err.toStdString();
    EXPECT_EQ(Row(partial, 0, 11).value(4), "50.00");
}
