// The graph data files: CSV and workbook round trips, the time read by position, the BMP head.

#include "exchange/Bmp.h"
#include "exchange/CsvText.h"
#include "exchange/GraphData.h"
#include "exchange/GraphExchange.h"
#include "support/ScriptedPrompt.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <gtest/gtest.h>

using namespace quillon;

namespace {

GraphData Sample() {
    GraphData d;
    d.names = {"Output Frequency", QString::fromUtf8("输出电流"), "No display", "No display"};
    d.minimum = {"0.00", "0.0", "0.00", "0.00"};
    d.maximum = {"50.00", "10.0", "10.00", "10.00"};
    d.AddSample({"12.50", "3.2", "0", "0"}, "04:52:11.250");
    d.AddSample({"12.75", "3.3", "0", "0"}, "04:52:11.350");
    d.AddSample({"13.00", "3.1", "0", "0"}, "4:52:11.450");
    return d;
}

void ExpectSameSamples(const GraphData& a, const GraphData& b) {
    EXPECT_EQ(a.names, b.names);
    EXPECT_EQ(a.minimum, b.minimum);
    EXPECT_EQ(a.maximum, b.maximum);
    ASSERT_EQ(a.samples.size(), b.samples.size());
    for (size_t i = 0; i < a.samples.size(); ++i) {
        EXPECT_EQ(a.samples[i].values, b.samples[i].values);
        EXPECT_EQ(a.samples[i].time, b.samples[i].time);
        EXPECT_DOUBLE_EQ(a.samples[i].seconds, b.samples[i].seconds);
    }
}

quint32 U32(const QByteArray& b, int at) { return qFromLittleEndian<quint32>(b.constData() + at); }
quint16 U16(const QByteArray& b, int at) { return qFromLittleEndian<quint16>(b.constData() + at); }

}  // namespace

TEST(GraphData, CsvRoundTripGoesOnPastABadLine) {
    test::ScriptedPrompt prompt;
    const GraphData data = Sample();
    const QByteArray bytes = ExportGraphCsv(data);
    EXPECT_TRUE(bytes.startsWith(QString::fromUtf8(",Output Frequency,输出电流,No display,No display\r\n"
                                                   "Min,0.00,0.0,0.00,0.00\r\nMax,50.00,10.0,10.00,10.00\r\n"
                                                   "0,12.50,3.2,0,0,04:52:11.250\r\n1,")
                                     .toUtf8()));
    EXPECT_TRUE(bytes.endsWith("2,13.00,3.1,0,0,4:52:11.450"));

    auto lines = SplitCsvLines(bytes);
    lines.insert(lines.begin() + 4, "7,1,2,3,04:52:11.300");  // five fields
    GraphData back;
    EXPECT_TRUE(ImportGraphCsv(lines, back));
    EXPECT_EQ(prompt.Messages(), QStringList{"Import file error."});
    ExpectSameSamples(data, back);
    EXPECT_DOUBLE_EQ(back.samples[0].seconds, 0.25 + 11 + 60 * (52 + 60 * 4));
    EXPECT_DOUBLE_EQ(back.samples[2].seconds, 0.45 + 11 + 60 * (52 + 60 * 4));
    EXPECT_EQ(back.start.millisecond, 250);
    EXPECT_DOUBLE_EQ(back.samples[1].numbers[0], 12.75);

    // An empty store writes the three heading lines; a heading of four fields ends the import.
    EXPECT_EQ(ExportGraphCsv(GraphData{}), ",,,,\r\nMin,,,,\r\nMax,,,,");
    lines[1] = "Min,0,0,0";
    EXPECT_FALSE(ImportGraphCsv(lines, back));
    EXPECT_TRUE(back.samples.empty());
    EXPECT_EQ(prompt.Messages().size(), 2);
}

TEST(GraphData, WorkbookRoundTripWithAndWithoutTheDefinedName) {
    test::ScriptedPrompt prompt;
    QTemporaryDir dir;
    const GraphData data = Sample();
    prompt.FileName(dir.filePath("g.xlsx"));
    ExportGraph(data, ExportFormat::Excel);
    QString error;
    auto book = ReadWorkbookFile(dir.filePath("g.xlsx"), error);
    ASSERT_TRUE(book) << error.toStdString();
    ASSERT_EQ(book->sheets.size(), 1u);
    const DefinedName* name = book->FindName("GraphData");
    ASSERT_TRUE(name);
    EXPECT_EQ(name->sheet, "GraphData");
    EXPECT_EQ(name->lastRow, 6);
    EXPECT_EQ(name->lastColumn, 5);
    const WorkSheet& sheet = book->sheets[0];
    EXPECT_EQ(sheet.Cell(1, 0), "Index");
    EXPECT_EQ(sheet.Cell(1, 5), "Time");
    EXPECT_EQ(sheet.Cell(4, 1), "12.50");
    GraphData back;
    EXPECT_EQ(ImportGraphFile(dir.filePath("g.xlsx"), back), ImportResult::Done);
    ExpectSameSamples(data, back);
    // A legacy workbook has no names: the sheet and the "Index" row are found by content.
    book->names.clear();
    EXPECT_TRUE(ImportGraphWorkbook(*book, back));
    ExpectSameSamples(data, back);
    EXPECT_EQ(prompt.Messages(), (QStringList{"Export success.", "Import success.", "Import success."}));
}

TEST(GraphData, BmpHeadAndRowsBottomUp) {
    // 3 x 2 pixels, a row padded to 16 bytes as an image may keep it.
    const unsigned char pixels[32] = {1, 1, 1, 0, 2, 2, 2, 0, 3, 3, 3, 0, 9, 9, 9, 9,
                                      4, 4, 4, 0, 5, 5, 5, 0, 6, 6, 6, 0, 9, 9, 9, 9};
    const QByteArray bmp = BuildBmp32(3, 2, pixels, 16);
    ASSERT_EQ(bmp.size(), 54 + 24);
    EXPECT_EQ(U16(bmp, 0), 0x4D42);
    EXPECT_EQ(U32(bmp, 2), 54u + 24u);
    EXPECT_EQ(U32(bmp, 10), 54u);
    EXPECT_EQ(U32(bmp, 14), 40u);
    EXPECT_EQ(U32(bmp, 18), 3u);
    EXPECT_EQ(U32(bmp, 22), 2u);
    EXPECT_EQ(U16(bmp, 26), 1);
    EXPECT_EQ(U16(bmp, 28), 32);
    EXPECT_EQ(U32(bmp, 30), 0u);
    EXPECT_EQ(bmp.mid(54, 12), QByteArray("\4\4\4\0\5\5\5\0\6\6\6\0", 12));  // the bottom row first
    EXPECT_EQ(bmp.mid(66, 4), QByteArray("\1\1\1\0", 4));
}
