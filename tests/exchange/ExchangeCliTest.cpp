// quillon-cli export and import: files that round-trip, a gap that stops the import by position,
// and nothing written for a bad file.

#include "ExchangeFixture.h"
#include "params/ProjectFile.h"
#include "support/ProgramRun.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace quillon;
using quillon::test::ExchangeFixture;

namespace {
test::ProgramRun Cli(const QStringList& args) {
    return test::RunProgram(QStringLiteral(QUILLON_CLI_PATH), args);
}
}  // namespace

TEST(ExchangeCli, ExportImportRoundTripsAndByCodeCrossesTheGap) {
    ExchangeFixture f;
    auto doc = f.NewDoc();
    doc->RowAt(0, 3).m_strSetValue = "2";
    doc->RowAt(13, 1).m_strSetValue = "00010";
    QString error;
    ASSERT_TRUE(SaveProjectDocument(*doc, f.File("p.qpj"), error));
    for (const char* ext : {"xlsx", "csv"})
        ASSERT_EQ(Cli({"export", f.File("p.qpj"), "-o", f.File(QStringLiteral("p.") + ext)}).code, 0) << ext;

    EXPECT_EQ(Cli({"import", f.File("p.xlsx"), "-o", f.File("x.qpj")}).code, 0);
    const auto bad = Cli({"import", f.File("p.csv"), "-o", f.File("c.qpj")});
    EXPECT_EQ(bad.code, 1);
    EXPECT_TRUE(bad.err.contains("of the import ffile is error.")) << bad.err.toStdString();
    EXPECT_FALSE(QFile::exists(f.File("c.qpj")));
    EXPECT_EQ(Cli({"import", "--by-code", f.File("p.csv"), "--into", f.File("p.qpj"), "-o", f.File("c.qpj")}).code, 0);
    for (const char* out : {"x.qpj", "c.qpj"}) {
        auto back = f.NewDoc(201, "R770-201-Kxx");
        ASSERT_TRUE(OpenProjectDocument(*back, f.File(out)).ok) << out;
        EXPECT_EQ(f.session.m_strModelName, "R770-402-Kxx") << out;
        EXPECT_EQ(test::SetValues(*back), test::SetValues(*doc)) << out;
    }
    EXPECT_EQ(Cli({"export", f.File("p.qpj"), "-o", f.File("p.txt")}).code, 2);
    EXPECT_EQ(Cli({"import", f.File("missing.csv"), "-o", f.File("m.qpj")}).code, 1);
}
