// The parameter workbook: what we write (read back here and by openpyxl), and workbooks written
// by other programs: shared and inline strings, rich-text runs, numbers, a header found by content.

#include "ExchangeFixture.h"
#include "exchange/ParamExchange.h"
#include "exchange/ParamWorkbook.h"
#include "exchange/XlsxRead.h"
#include "exchange/XlsxWrite.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>
#include <zip.h>

using namespace quillon;
using quillon::test::ExchangeFixture;

namespace {

QByteArray ReadAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// A zip package written member by member, as another program would write a workbook.
QByteArray Package(const std::vector<std::pair<const char*, QByteArray>>& members, const QString& path) {
    zipFile zip = zipOpen(QFile::encodeName(path).constData(), APPEND_STATUS_CREATE);
    for (const auto& [name, data] : members) {
        zipOpenNewFileInZip(zip, name, nullptr, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED, 6);
        zipWriteInFileInZip(zip, data.constData(), static_cast<unsigned>(data.size()));
        zipCloseFileInZip(zip);
    }
    zipClose(zip, nullptr);
    return ReadAll(path);
}

// A python that has `module`, or empty.
QString PythonWith(const QString& module) {
    for (const QString& python : {QStringLiteral("/usr/bin/python3"), QStringLiteral("python3")}) {
        if (QStandardPaths::findExecutable(python).isEmpty() && !QFile::exists(python)) continue;
        if (QProcess::execute(python, {"-c", "import " + module}) == 0) return python;
    }
    return {};
}

// Runs a python script with arguments; its standard output, or a failure of the test.
QStringList RunPython(const QString& python, const char* script, const QStringList& args) {
    QProcess py;
    py.start(python, QStringList{"-c", script} + args);
    EXPECT_TRUE(py.waitForFinished(60000));
    EXPECT_EQ(py.exitCode(), 0) << py.readAllStandardError().toStdString();
    return QString::fromUtf8(py.readAllStandardOutput()).split('\n');
}

}  // namespace

TEST(ParamWorkbook, SheetsNamesAndStringCellsRoundTrip) {
    ExchangeFixture f;
    auto doc = f.NewDoc();
    doc->RowAt(0, 3).m_strSetValue = "00001";
    doc->RowAt(2, 15).m_strSetValue = "0000";
    doc->RowAt(14, 2).m_strSetValue = "1";
    QString error;
    ASSERT_TRUE(WriteParamFile(*doc, ExportFormat::Excel, f.File("p.xlsx"), {}, error)) << error.toStdString();
    const auto book = ReadXlsx(ReadAll(f.File("p.xlsx")), error);
    ASSERT_TRUE(book) << error.toStdString();
    ASSERT_EQ(book->sheets.size(), 15u);
    for (int g = 0; g < 15; ++g) {
        const QString name = QStringLiteral("Group%1").arg(g);
        EXPECT_EQ(book->sheets[g].name, name);
        const DefinedName* range = book->FindName(name);
        ASSERT_TRUE(range) << g;
        EXPECT_EQ(range->lastRow, test::ExistingRows(*doc, g) + 1) << g;
        EXPECT_EQ(range->lastColumn, 2);
        EXPECT_EQ(book->sheets[g].rows[0],
                  (std::vector<QString>{"Parameter_Descriptions", "Factory_Setting", "Current_Value"}));
    }
    const WorkSheet& g2 = book->sheets[2];
    EXPECT_EQ(g2.Cell(8, 0).left(5), "02-06");
    EXPECT_EQ(g2.Cell(9, 0).left(5), "02-15");  // the gap rows take no sheet row
    EXPECT_EQ(g2.Cell(9, 2), "0000");
    EXPECT_EQ(book->sheets[0].Cell(5, 2), "00001");
    EXPECT_EQ(WorkbookModelName(*book), "R770-402-Kxx");
    ASSERT_TRUE(QFile::copy(f.File("p.xlsx"), f.File("p.xls")));  // a new-format file named .xls
    EXPECT_TRUE(ReadWorkbookFile(f.File("p.xls"), error)) << error.toStdString();

    // By position a record's row is the number at position 3 of its code: "F01 ..." has none
    // there, so every record of the simplified group lands on its row 0, the last one winning.
    auto back = f.NewDoc();
    EXPECT_TRUE(ImportParamWorkbook(*back, *book));
    EXPECT_EQ(test::SetValues(*back, 0, 13), test::SetValues(*doc, 0, 13));
    EXPECT_NE(back->RowAt(14, 2).m_strSetValue, "1");
    EXPECT_EQ(back->RowAt(14, 0).m_strSetValue, doc->RowAt(14, 33).m_strSetValue);
    EXPECT_TRUE(ImportParamWorkbook(*back, *book, ImportMatch::ByCode));
    EXPECT_EQ(test::SetValues(*back, 14, 14).mid(1), test::SetValues(*doc, 14, 14).mid(1));
    EXPECT_EQ(f.prompt.Messages(), (QStringList{"Import success.", "Import success."}));
}

TEST(ParamWorkbook, OpenpyxlReadsStringsAndWhatItWritesImports) {
    const QString python = PythonWith("openpyxl");
    if (python.isEmpty()) GTEST_SKIP() << "python3-openpyxl is not installed";
    ExchangeFixture f;
    auto doc = f.NewDoc();
    doc->RowAt(0, 3).m_strSetValue = "00001";
    QString error;
    ASSERT_TRUE(WriteParamFile(*doc, ExportFormat::Excel, f.File("p.xlsx"), {}, error));
    const char* script = R"(
import sys, openpyxl
wb = openpyxl.load_workbook(sys.argv[1])
print(",".join(wb.sheetnames[:3]), len(wb.sheetnames))
print(wb.defined_names["Group2"].attr_text)
ws = wb["Group0"]
print(sorted({c.data_type for row in ws.iter_rows(min_row=3) for c in row}), ws["C6"].value, ws["B14"].value)
ws["C6"] = "7"
wb.save(sys.argv[2])
)";
    const QStringList out = RunPython(python, script, {f.File("p.xlsx"), f.File("o.xlsx")});
    ASSERT_GE(out.size(), 3);
    EXPECT_EQ(out[0], "Group0,Group1,Group2 15");
    EXPECT_EQ(out[1], "'Group2'!$A$1:$C$" + QString::number(test::ExistingRows(*doc, 2) + 2));
    EXPECT_EQ(out[2], "['s'] 00001 " + doc->RowAt(0, 11).m_strDefault);

    // openpyxl's own file (shared strings, its own defined names) imports back.
    const auto book = ReadWorkbookFile(f.File("o.xlsx"), error);
    ASSERT_TRUE(book) << error.toStdString();
    auto back = f.NewDoc();
    EXPECT_TRUE(ImportParamWorkbook(*back, *book));
    EXPECT_EQ(back->RowAt(0, 3).m_strSetValue, "7");
    EXPECT_EQ(back->RowAt(0, 11).m_strSetValue, doc->RowAt(0, 11).m_strSetValue);
}

TEST(ParamWorkbook, ForeignWorkbookInlineRichAndNumberCellsRowFromTheCode) {
    ExchangeFixture f;
    const QByteArray workbook =
        R"(<?xml version="1.0"?><workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"
 xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships"><sheets>
<sheet name="Group0" sheetId="1" r:id="rId1"/></sheets></workbook>)";
    const QByteArray rels =
        R"(<?xml version="1.0"?><Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
<Relationship Id="rId1" Type="x" Target="/xl/worksheets/sheet1.xml"/></Relationships>)";
    const QByteArray shared =
        R"(<sst xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"><si><t>Current_Value</t></si>
<si><r><t>00-0</t></r><r><rPr><b/></rPr><t>5 main</t></r><rPh><t>x</t></rPh></si></sst>)";
    // The header stands in row 2 here; no defined names. Row 4 is 00-05, row 5 is 00-02.
    const QByteArray sheet =
        R"(<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"><sheetData>
<row r="2"><c r="A2" t="inlineStr"><is><t>Parameter_Descriptions</t></is></c><c t="inlineStr"><is><t>Factory_Setting</t></is></c><c r="C2" t="s"><v>0</v></c></row>
<row r="4"><c r="A4" t="s"><v>1</v></c><c r="B4"><v>50</v></c><c r="C4"><v>1.5</v></c></row>
<row r="5"><c r="A5" t="inlineStr"><is><r><t>00-</t></r><r><t>02</t></r></is></c><c r="B5" t="str"><v>2</v></c><c r="C5" t="inlineStr"><is><t>0003</t></is></c></row>
</sheetData></worksheet>)";
    QString error;
    const auto book = ReadXlsx(Package({{"xl/workbook.xml", workbook},
                                        {"xl/_rels/workbook.xml.rels", rels},
                                        {"xl/sharedStrings.xml", shared},
                                        {"xl/worksheets/sheet1.xml", sheet}},
                                       f.File("foreign.xlsx")),
                               error);
    ASSERT_TRUE(book) << error.toStdString();
    EXPECT_EQ(book->sheets[0].Cell(3, 0), "00-05 main");
    auto doc = f.NewDoc();
    EXPECT_FALSE(ImportParamWorkbook(*doc, *book));  // Group1 is missing, Group0 went in
    EXPECT_EQ(doc->RowAt(0, 5).m_strDefault, "50");
    EXPECT_EQ(doc->RowAt(0, 5).m_strSetValue, "1.5");
    EXPECT_EQ(doc->RowAt(0, 2).m_strDefault, "2");
    EXPECT_EQ(doc->RowAt(0, 2).m_strSetValue, "0003");
    EXPECT_TRUE(f.prompt.Messages().last().contains("Group1"));

    EXPECT_FALSE(ReadXlsx(QByteArray("PK\3\4 not a zip"), error));
    EXPECT_FALSE(ReadWorkbookFile(f.File("foreign.xls"), error));  // no such legacy file
    QFile damaged(f.File("damaged.xls"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1").leftJustified(4096, '\x7F'));
    damaged.close();
    EXPECT_FALSE(ReadWorkbookFile(f.File("damaged.xls"), error));
    EXPECT_EQ(error, "the file is not a legacy workbook or is damaged");
}

TEST(ParamWorkbook, LegacyXlsWrittenByAnotherProgramImportsByNameAndHeader) {
    const QString python = PythonWith("xlwt");
    if (python.isEmpty()) GTEST_SKIP() << "python3-xlwt is not installed";
    ExchangeFixture f;
    auto doc = f.NewDoc();
    doc->RowAt(0, 3).m_strSetValue = "00001";
    doc->RowAt(13, 1).m_strSetValue = "7";
    const QString csv = f.File("p.csv");
    QString error;
    ASSERT_TRUE(WriteParamFile(*doc, ExportFormat::Csv, csv, {}, error));
    // The sheets in reverse order, a title row above the header, numbers where the text is one.
    const char* script = R"(
import sys, xlwt
lines = open(sys.argv[1], encoding="utf-8", newline="").read().split("\r\n")[3:]
book = xlwt.Workbook(encoding="utf-8")
for g in reversed(range(15)):
    ws = book.add_sheet("Group%d" % g)
    ws.write(0, 0, "exported elsewhere")
    for c, h in enumerate(["Parameter_Descriptions", "Factory_Setting", "Current_Value"]):
        ws.write(1, c, h)
    rows = [l.rsplit(",", 1) for l in lines if l.startswith("%02d-" % g)]
    for i, (code, value) in enumerate(rows):
        ws.write(i + 3, 0, code)
        ws.write(i + 3, 1, "")
        ws.write(i + 3, 2, float(value) if value == "7" else value)
book.save(sys.argv[2])
)";
    RunPython(python, script, {csv, f.File("legacy.xls")});
    const auto book = ReadWorkbookFile(f.File("legacy.xls"), error);
    ASSERT_TRUE(book) << error.toStdString();
    EXPECT_EQ(book->sheets.front().name, "Group14");
    EXPECT_TRUE(book->names.empty());
    auto back = f.NewDoc();
    EXPECT_TRUE(ImportParamWorkbook(*back, *book));
    EXPECT_EQ(test::SetValues(*back, 0, 13), test::SetValues(*doc, 0, 13));
    EXPECT_EQ(back->RowAt(0, 3).m_strDefault, "");
}
