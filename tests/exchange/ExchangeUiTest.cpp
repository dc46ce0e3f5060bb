// Import and Export from the main window: the format dialog, the file dialogs, the list refreshed
// after an import; the picture of a window.

#include "exchange/ExchangeUi.h"
#include "exchange/ExportFormatDlg.h"
#include "shell/CommandIds.h"
#include "support/AppSession.h"
#include "support/ScriptedPrompt.h"

#include <QApplication>
#include <QFile>
#include <QRadioButton>
#include <QTimer>
#include <QtEndian>
#include <gtest/gtest.h>

using namespace quillon;

namespace {
// Answers the format dialog when it comes up: CSV, or a close when `choose` is false.
void AnswerFormatDialog(bool choose) {
    QTimer::singleShot(0, [choose] {
        auto* dlg = qobject_cast<CExportFormatDlg*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dlg);
        EXPECT_EQ(dlg->windowTitle(), "Export/Import Format");
        if (!choose) return dlg->reject();
        dlg->CsvButton()->click();
        dlg->accept();
    });
}
}  // namespace

TEST(ExchangeUi, ExportThroughTheFormatDialogThenImportRefreshesTheRows) {
    test::AppSession s;
    test::ScriptedPrompt prompt;
    s.NewProject("R770-201-Kxx");
    CM330Doc* doc = s.frame->Document();
    ASSERT_TRUE(doc);
    doc->RowAt(0, 3).m_strSetValue = "2";
    const QString csv = s.dir.File("out.csv");

    AnswerFormatDialog(false);
    s.frame->OnCommand(CmdId::ExportParams);  // closed: no file is asked for
    AnswerFormatDialog(true);
    prompt.FileName(csv);
    s.frame->OnCommand(CmdId::ExportParams);
    QFile file(csv);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("Model:R770-201-Kxx\r\nParameter Name,Set Value\r\n"));
    EXPECT_EQ(prompt.Messages(), QStringList{"Export success."});

    doc->SetSetValue(0, 3, "5", RowMark::Changed);
    prompt.FileName(csv);
    s.frame->OnCommand(CmdId::ImportParams);
    EXPECT_EQ(s.frame->Document()->RowAt(0, 3).m_strSetValue, "2");
    EXPECT_FALSE(s.frame->Document()->RowChanged(0, 3));
    // Model 201 has gap rows in group 2: the walk by position stops at the first line behind them,
    // the rows before it imported.
    EXPECT_TRUE(prompt.Messages().last().endsWith("(02-15 Motor pole number,4) of the import ffile is error."))
        << prompt.Messages().last().toStdString();

    prompt.FileName(s.dir.File("frame.bmp"));
    ASSERT_TRUE(SaveWidgetPicture(*s.frame));
    QFile bmp(s.dir.File("frame.bmp"));
    ASSERT_TRUE(bmp.open(QIODevice::ReadOnly));
    const QByteArray bytes = bmp.readAll();
    ASSERT_GT(bytes.size(), 54);
    EXPECT_TRUE(bytes.startsWith("BM"));
    EXPECT_EQ(qFromLittleEndian<qint32>(bytes.constData() + 18), s.frame->width());
    EXPECT_EQ(bytes.size(), 54 + 4 * s.frame->width() * s.frame->height());
}
