// The parameter CSV file: its bytes, the import's walk over the rows, and old files' encodings.

#include "ExchangeFixture.h"
#include "base/TextConv.h"
#include "exchange/CsvText.h"
#include "exchange/ParamCsv.h"
#include "params/Archive.h"

#include <gtest/gtest.h>
#include <set>

using namespace quillon;
using quillon::test::ExchangeFixture;

namespace {
std::vector<QString> Lines(const QByteArray& bytes) { return SplitCsvLines(bytes); }
const QByteArray kHead = "Model:R770-402-Kxx\r\nParameter Name,Set Value\r\nTime:: 03-07-2026,Page:: 09:05:04\r\n";
}  // namespace

TEST(ParamCsv, ExportWritesHeadingAndExistingRowsWithCrLfBetweenLines) {
    ExchangeFixture f;
    auto doc = f.NewDoc();
    doc->RowAt(0, 3).m_strSetValue = "00001";
    const QByteArray bytes = ExportParamCsv(*doc, QDateTime(QDate(2026, 3, 7), QTime(9, 5, 4)));
    EXPECT_TRUE(bytes.startsWith(kHead + "00-00 ")) << bytes.left(120).toStdString();
    EXPECT_FALSE(bytes.endsWith('\n'));
    EXPECT_FALSE(bytes.endsWith('\r'));
    EXPECT_EQ(bytes.count("\r\n"), bytes.count('\n'));
    EXPECT_TRUE(bytes.contains("\r\n00-03 Alternative run command source,00001\r\n"));
    EXPECT_EQ(bytes.count("\r\n") + 1, 3 + test::ExistingRows(*doc));
    // The gap rows 02-07..02-14 take no line: 02-06 is followed by 02-15.
    const qsizetype at = bytes.indexOf("\r\n02-06");
    ASSERT_GE(at, 0);
    EXPECT_EQ(bytes.mid(bytes.indexOf("\r\n", at + 2) + 2, 5), "02-15");

    EXPECT_EQ(Lines("a\r\nb\r\n\r\nc"), (std::vector<QString>{"a", "b", "", "c"}));
    EXPECT_EQ(Lines("a\nb\r"), (std::vector<QString>{"ab"}));
}

TEST(ParamCsv, ImportResetsTheDocumentThenStopsAtTheGapOrMatchesByCode) {
    ExchangeFixture f;
    auto source = f.NewDoc();
    source->RowAt(0, 1).m_strSetValue = "1";
    source->RowAt(2, 3).m_strSetValue = "3";
    source->RowAt(5, 0).m_strSetValue = "4";
    const auto lines = Lines(ExportParamCsv(*source, QDateTime::currentDateTime()));

    auto doc = f.NewDoc(201, "R770-201-Kxx");
    doc->RowAt(5, 1).m_strSetValue = "junk";
    EXPECT_FALSE(ImportParamCsv(*doc, lines));
    // Walked by position, the gap row 02-07 meets the line of 02-15.
    int line = 3 + 7;
    for (int g = 0; g < 2; ++g) line += static_cast<int>(doc->GroupAt(g).m_rows.size());
    ASSERT_EQ(f.prompt.Messages().size(), 1);
    EXPECT_EQ(f.prompt.Messages()[0],
              QStringLiteral("Line %1(%2) of the import ffile is error.").arg(line).arg(lines[line]));
    EXPECT_EQ(f.session.m_strModelName, "R770-402-Kxx");
    EXPECT_EQ(f.session.m_nModelCode, 402);
    EXPECT_EQ(doc->RowAt(0, 1).m_strSetValue, "1");
    EXPECT_EQ(doc->RowAt(2, 3).m_strSetValue, "3");
    EXPECT_NE(doc->RowAt(5, 0).m_strSetValue, "4");  // not reached
    EXPECT_NE(doc->RowAt(5, 1).m_strSetValue, "junk");                          // reset first
    EXPECT_TRUE(doc->IsModified());

    // The views hear of each group the import writes into, as of an edit.
    std::set<int> announced;
    QObject::connect(doc.get(), &CM330Doc::GroupChanged, [&](int g) { announced.insert(g); });
    EXPECT_TRUE(ImportParamCsv(*doc, lines, ImportMatch::ByCode));
    EXPECT_EQ(test::SetValues(*doc), test::SetValues(*source));
    EXPECT_TRUE(announced.count(0) && announced.count(2) && announced.count(5));
    EXPECT_EQ(f.prompt.Messages().last(), "Import success.");
}

TEST(ParamCsv, CommaInTheCodeOf1000AndShortOrForeignLines) {
    ExchangeFixture f;
    auto doc = f.NewDoc();
    const std::vector<QString> head{"Model:R770-402-Kxx", "Parameter Name,Set Value", "Time:: x"};
    auto with = [&](const QString& line) {
        auto lines = head;
        lines.push_back(line);
        return lines;
    };
    EXPECT_TRUE(ImportParamCsv(*doc, with("10-00 PID target,list text,5"), ImportMatch::ByCode));
    EXPECT_EQ(doc->RowAt(10, 0).m_strSetValue, "5");
    EXPECT_FALSE(ImportParamCsv(*doc, with("10-01 a,b,5"), ImportMatch::ByCode));
    EXPECT_EQ(f.prompt.Messages().last(), "Line 3(10-01 a,b,5) of the import ffile is error.");
    EXPECT_FALSE(ImportParamCsv(*doc, with("00-0,1")));
    EXPECT_EQ(f.prompt.Messages().last(), "Line 3(00-0,1) of the import ffile is error.");
    EXPECT_FALSE(ImportParamCsv(*doc, with("00-01,1")));  // position 0 is 00-00
    // Three lines import nothing and still reset to their model; no ":" gives an empty name.
    doc->RowAt(0, 0).m_strSetValue = "9";
    EXPECT_TRUE(ImportParamCsv(*doc, {"Model R770", "a", "b"}));
    EXPECT_EQ(f.session.m_strModelName, "");
    EXPECT_NE(doc->RowAt(0, 0).m_strSetValue, "9");
}

TEST(ParamCsv, FilesOfOlderToolsAreReadAsGb18030AndABomIsDropped) {
    ExchangeFixture f;
    auto doc = f.NewDoc();
    const QByteArray gb = "\xEF\xBB\xBFModel:R770-402-Kxx\r\na\r\nb\r\n00-00 x,\xBF\xD8\xD6\xC6";
    EXPECT_EQ(DecodeLegacyText(QByteArray("\xBF\xD8\xD6\xC6\xA2\xE3")), QString::fromUtf8("控制€"));
    EXPECT_EQ(DecodeLegacyText(QByteArray("\xEF\xBB\xBF控制")), QString::fromUtf8("控制"));
    EXPECT_EQ(DecodeGb18030WithIconv(QByteArray("\xBF\xD8\xFF\xA2\xE3")), QString::fromUtf8("控\uFFFD€"));
    EXPECT_TRUE(ImportParamCsv(*doc, SplitCsvLines(gb)));
    EXPECT_EQ(f.session.m_strModelName, "R770-402-Kxx");
    EXPECT_EQ(doc->RowAt(0, 0).m_strSetValue, QString::fromUtf8("控制"));

    // Project files: a GB18030 text reads as Chinese; what we write is UTF-8 cut at a character.
    const QByteArray text("\x04\0\0\0\xBF\xD8\xD6\xC6", 8);
    EXPECT_EQ(CArchiveReader(text).ReadText(), QString::fromUtf8("控制"));
    const QByteArray cut = ArchiveTextBytes(QString::fromUtf8("控").repeated(50));
    EXPECT_EQ(cut.size(), 99);
    EXPECT_EQ(QString::fromUtf8(cut), QString::fromUtf8("控").repeated(33));
}
