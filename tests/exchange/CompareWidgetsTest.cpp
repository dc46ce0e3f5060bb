// The compare and print windows as a person meets them, and their commands on the main window.

#include "exchange/CompareDlg.h"
#include "exchange/CompareUi.h"
#include "exchange/PrintLayout.h"
#include "exchange/PrintTitleDlg.h"
#include "exchange/PrintUi.h"
#include "shell/CommandIds.h"
#include "support/AppSession.h"
#include "support/ScriptedPrompt.h"
#include "support/WidgetTestSupport.h"

#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QToolBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace quillon::test {
namespace {

QStringList Headings(const QTableWidget& list) {
    QStringList h;
    for (int c = 0; c < list.columnCount(); ++c) h << list.horizontalHeaderItem(c)->text();
    return h;
}

TEST(CompareWindows, ChoiceWithoutALinkIsModeZeroOnly) {
    CCompareSelectDlg offline(false);
    EXPECT_EQ(offline.windowTitle(), "参数比较选择");
    EXPECT_EQ(offline.Mode(), kCompareDefaultSet);
    EXPECT_FALSE(offline.Choice(1)->isEnabled());
    EXPECT_FALSE(offline.Choice(2)->isEnabled());
    CCompareSelectDlg online(true);
    EXPECT_EQ(online.Mode(), kCompareSetRead);
    EXPECT_TRUE(online.Choice(1)->isEnabled());
}

TEST(CompareWindows, CompareCommandFillsOneWindowThatSavesItsText) {
    ScriptedPrompt prompt;
    AppSession app;
    app.NewProject(QStringLiteral("R770-2P5-Kxx"));
    CMainFrame& frame = *app.frame;
    CM330Doc& doc = *frame.Document();
    doc.RowAt(0, 11).m_strSetValue = QStringLiteral("50.0");  // the same number, another text
    doc.RowAt(1, 1).m_strSetValue = QStringLiteral("230.0");
    doc.RowAt(14, 5).m_strSetValue = QStringLiteral("45.0");  // F05 is "50.00"
    OnNextModal<CCompareSelectDlg>([](CCompareSelectDlg& d) { d.accept(); });
    frame.OnCommand(CmdId::Compare);
    CCompareDlg* window = CompareUiOf(frame)->Window();
    ASSERT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowTitle(), "比较");
    QTableWidget& list = *window->List();
    EXPECT_EQ(Headings(list), (QStringList{"Code", "Parameter Name", "Default", "Set Value"}));
    EXPECT_EQ(list.columnWidth(0), 50);
    EXPECT_EQ(list.columnWidth(1), list.width() - 194);
    EXPECT_EQ(list.columnWidth(3), 85);
    ASSERT_EQ(list.rowCount(), 3);
    EXPECT_EQ(list.item(0, 3)->text(), "50.0");
    EXPECT_EQ(list.item(2, 0)->text(), "F05  ");
    EXPECT_EQ(list.item(2, 1)->text(), "Frequency upper limit");
    EXPECT_EQ(list.item(2, 2)->text(), "50.00");
    EXPECT_EQ(list.selectionBehavior(), QAbstractItemView::SelectRows);

    QTemporaryDir dir;
    prompt.FileName(dir.filePath("cmp.txt"));
    window->SaveButton()->click();
    QFile saved(dir.filePath("cmp.txt"));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll(), CompareText(CompareUiOf(frame)->Command().Result(), 0));

    if (const QByteArray shots = qgetenv("QUILLON_SHOTS"); !shots.isEmpty())
        window->grab().save(QString::fromLocal8Bit(shots) + "/compare-window.png");
    window->CloseButton()->click();
    EXPECT_FALSE(window->isVisible());
    // The next compare fills the same window anew.
    for (auto [g, r] : {std::pair{0, 11}, {1, 1}, {14, 5}})
        doc.RowAt(g, r).m_strSetValue = doc.RowAt(g, r).m_strDefault;
    OnNextModal<CCompareSelectDlg>([](CCompareSelectDlg& d) { d.accept(); });
    frame.OnCommand(CmdId::Compare);
    EXPECT_EQ(CompareUiOf(frame)->Window(), window);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(list.rowCount(), 0);
    EXPECT_TRUE(prompt.Messages().isEmpty());
}

TEST(PrintWindows, TitleDialogCountsBytesAndTheCommandKeepsTheTitles) {
    ScriptedPrompt prompt;
    AppSession app;
    app.NewProject(QStringLiteral("R770-2P5-Kxx"));
    CMainFrame& frame = *app.frame;
    OnNextModal<CPrintTitleDlg>([&](CPrintTitleDlg& d) {
        EXPECT_EQ(d.windowTitle(), "Print Title Set");
        EXPECT_EQ(d.TitleEdit()->text(), "Parameter Setting List");
        d.NameEdit()->setText(QString(26, u'n'));  // one byte too many
        d.accept();
        EXPECT_TRUE(d.isVisible());
        d.NameEdit()->setText(QString(25, u'n'));
        d.TitleEdit()->setText(QString(11, QChar(0x6CF5)));  // 33 bytes
        d.accept();
        EXPECT_TRUE(d.isVisible());
        d.TitleEdit()->setText(QString(10, QChar(0x6CF5)));  // 30 bytes
        d.DepartmentEdit()->setText(QString(40, u'd'));
        d.accept();
    });
    frame.OnCommand(CmdId::PrintTitle);
    EXPECT_EQ(prompt.Messages(), QStringList(2, "Title or name can't be more than 20 bytes!"));
    const PrintTitles& t = frame.Document()->m_printTitles;
    EXPECT_EQ(t.m_strTitle, QString(10, QChar(0x6CF5)));
    EXPECT_EQ(t.m_strName, QString(25, u'n'));
    EXPECT_TRUE(frame.Document()->IsModified());

    // Without a printer the preview still shows the pages, as a PDF file would hold them.
    QStringList tools;
    int pages = 0;
    OnNextModal<QPrintPreviewDialog>([&](QPrintPreviewDialog& d) {
        for (const QAction* a : d.findChild<QToolBar*>()->actions()) tools << a->text();
        pages = d.findChild<QPrintPreviewWidget*>()->pageCount();
        d.reject();
    });
    frame.OnCommand(CmdId::PrintPreview);
    for (const char* name : {"&Print...", "&Next Page", "&Prev Page", "Zoom &In", "Zoom &Out", "Close"})
        EXPECT_TRUE(tools.contains(name)) << name;
    EXPECT_EQ(pages, ListPageCount(ListLines(*frame.Document())));
    EXPECT_EQ(prompt.Messages().size(), 2);
}

}  // namespace
}  // namespace quillon::test
