// The main window as a person meets it: menus and tool bar in the state of the session, the
// status panes, the project tree and the list it switches, help, and dropped project files.

#include "params/ProjectFile.h"
#include "shell/ChildFrame.h"
#include "shell/CommandIds.h"
#include "shell/HelpDlg.h"
#include "shell/M330App.h"
#include "shell/M330View.h"
#include "shell/MainFrame.h"
#include "shell/ProjectTree.h"
#include "support/AppSession.h"
#include "support/ScriptedPrompt.h"

#include <QDir>
#include <QDockWidget>
#include <QTextBrowser>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>
#include <malloc.h>

using namespace quillon;
using quillon::test::ScriptedPrompt;

namespace {

// A fresh main window on a private program directory, with what the tests ask of it.
struct Session : quillon::test::AppSession {
    bool Enabled(int id) const { return frame->Action(id)->isEnabled(); }
    QStringList MenuTitles() const {
        QStringList titles;
        for (QAction* a : frame->menuBar()->actions()) titles << a->text();
        return titles;
    }
    void ClickTree(QTreeWidgetItem* item, Qt::MouseButton button = Qt::LeftButton) {
        CCJTreeCtrl* tree = frame->Tree();
        // On the item's text, near its left edge: long names run past the narrow bar.
        const QRect rect = tree->visualItemRect(item);
        QTest::mouseClick(tree->viewport(), button, {}, QPoint(rect.left() + 8, rect.center().y()));
    }
};

}  // namespace

TEST(MainFrame, MenusAndCommandStatesFollowTheSession) {
    ScriptedPrompt prompt;
    Session s;
    EXPECT_EQ(s.frame->CurrentMenuId(), 128);
    EXPECT_EQ(s.MenuTitles(), (QStringList{"&File", "&INV", "&View", "&Help"}));
    EXPECT_TRUE(s.Enabled(CmdId::New));
    EXPECT_TRUE(s.Enabled(CmdId::Open));
    for (int id : {CmdId::Connect, CmdId::Read, CmdId::Status, CmdId::Control, CmdId::GraphWatch,
                   CmdId::KeyPad, CmdId::Save})
        EXPECT_FALSE(s.Enabled(id)) << id;

    s.NewProject("R770-201-Kxx");
    ASSERT_NE(s.frame->Document(), nullptr);
    EXPECT_EQ(s.frame->CurrentMenuId(), 129);
    EXPECT_EQ(s.MenuTitles(), (QStringList{"&File", "&Edit", "&Run", "&View", "&Help"}));
    // No link: the link commands are grey, Graph Watch stays on with a project.
    for (int id : {CmdId::Read, CmdId::Write, CmdId::Status, CmdId::Control, CmdId::KeyPad,
                   CmdId::AutoRefresh, CmdId::PasswordSet})
        EXPECT_FALSE(s.Enabled(id)) << id;
    for (int id : {CmdId::GraphWatch, CmdId::Save, CmdId::SaveAs, CmdId::Connect, CmdId::Compare,
                   CmdId::GroupCommand(0), CmdId::GroupCommand(13)})
        EXPECT_TRUE(s.Enabled(id)) << id;
    EXPECT_FALSE(s.Enabled(CmdId::SimplifiedGroup));

    s.frame->Session().m_bOnline = 1;
    s.frame->Session().m_bAutoRefresh = 1;
    s.frame->Session().m_bCompleteParams = 0;
    s.frame->UpdateCommandUI();
    for (int id : {CmdId::Read, CmdId::Write, CmdId::Status, CmdId::Control, CmdId::KeyPad,
                   CmdId::AutoRefresh, CmdId::PasswordSet, CmdId::PasswordClear, CmdId::ChangeComm,
                   CmdId::SimplifiedGroup})
        EXPECT_TRUE(s.Enabled(id)) << id;
    EXPECT_FALSE(s.Enabled(CmdId::GroupCommand(5)));
    EXPECT_EQ(s.frame->Action(CmdId::PasswordSet)->text(), "设置...(&R)");
    EXPECT_EQ(s.frame->Action(CmdId::PasswordClear)->text(), "解除...(&D)");
    EXPECT_TRUE(s.frame->Action(CmdId::AutoRefresh)->isChecked());

    // Project Window toggles the docking bar and its check mark.
    EXPECT_TRUE(s.frame->Action(CmdId::ProjectWindow)->isChecked());
    s.frame->OnCommand(CmdId::ProjectWindow);
    EXPECT_TRUE(s.frame->DockBar()->isHidden());
    EXPECT_FALSE(s.frame->Action(CmdId::ProjectWindow)->isChecked());
    s.frame->OnCommand(CmdId::ProjectWindow);
    EXPECT_FALSE(s.frame->DockBar()->isHidden());

    // A disabled command does nothing even when asked for directly.
    s.frame->Session().m_bAutoRefresh = 0;
    s.frame->Session().m_bOnline = 0;
    s.frame->UpdateCommandUI();
    int reads = 0;
    s.frame->SetCommandHandler(CmdId::Read, [&reads] { ++reads; });
    s.frame->OnCommand(CmdId::Read);
    EXPECT_EQ(reads, 0);
    s.frame->Session().m_bOnline = 1;
    s.frame->OnCommand(CmdId::Read);
    EXPECT_EQ(reads, 1);
}

TEST(MainFrame, TreeClicksSwitchTheList) {
    ScriptedPrompt prompt;
    Session s;
    EXPECT_EQ(s.frame->Tree()->topLevelItemCount(), 0);  // no project, no tree
    s.frame->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(s.frame));
    s.NewProject("R770-201-Kxx");
    CM330View* view = s.frame->View();
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(s.frame->ChildFrame()->isMaximized());
    EXPECT_EQ(s.frame->ChildFrame()->windowTitle(), "New Project");
    EXPECT_EQ(s.frame->StatusPaneText(0), "File name:New Project");
    EXPECT_EQ(s.frame->StatusPaneText(3), "Model:R770-201-Kxx");
    s.frame->SetStatusPane(5, "ignored");
    s.frame->SetStatusPane(4, "Online");
    EXPECT_EQ(s.frame->StatusPaneText(4), "Online");

    CCJTreeCtrl* tree = s.frame->Tree();
    ASSERT_EQ(tree->topLevelItemCount(), 1);
    QTreeWidgetItem* root = tree->topLevelItem(0);
    ASSERT_EQ(root->childCount(), 1);
    QTreeWidgetItem* params = root->child(0);
    ASSERT_EQ(params->childCount(), 14);
    EXPECT_TRUE(root->isExpanded() && params->isExpanded());

    // All groups at first: one heading per group 00..13.
    EXPECT_EQ(s.frame->Session().m_nCurGroup, -1);
    EXPECT_EQ(view->LineTarget(0), std::make_pair(0, -1));
    int fills = view->FillCount();

    s.ClickTree(root);  // item data 0: nothing
    EXPECT_EQ(view->FillCount(), fills);
    s.ClickTree(params);  // all groups are shown already: nothing
    EXPECT_EQ(view->FillCount(), fills);

    s.ClickTree(params->child(2));
    EXPECT_EQ(s.frame->Session().m_nCurGroup, 2);
    EXPECT_EQ(view->FillCount(), ++fills);
    EXPECT_EQ(view->item(0, 1)->text(), "  " + s.frame->Document()->GroupAt(2).m_strName);
    EXPECT_EQ(view->LineTarget(1), std::make_pair(2, 0));
    EXPECT_EQ(s.frame->focusWidget(), view);
    EXPECT_EQ(view->selectionModel()->selectedRows().value(0).row(), 0);

    s.ClickTree(params->child(2));  // the same group again: the list is not filled again
    EXPECT_EQ(view->FillCount(), fills);

    // Arrow keys and the right button move the selection but don't switch the list.
    tree->setFocus();
    QTest::keyClick(tree, Qt::Key_Down);
    s.ClickTree(params->child(7), Qt::RightButton);
    EXPECT_EQ(tree->selectedItems().value(0), params->child(7));
    EXPECT_EQ(s.frame->Session().m_nCurGroup, 2);
    EXPECT_EQ(view->FillCount(), fills);

    s.ClickTree(params);
    EXPECT_EQ(s.frame->Session().m_nCurGroup, -1);
    EXPECT_EQ(view->FillCount(), ++fills);

    // Simplified parameters: one item under "Parameter", and the list shows group 14.
    s.frame->Session().m_bCompleteParams = 0;
    s.frame->RebuildTree();
    view->FillList();
    params = tree->topLevelItem(0)->child(0);
    ASSERT_EQ(params->childCount(), 1);
    EXPECT_EQ(CCJTreeCtrl::ItemData(params->child(0)), 2030);
    EXPECT_EQ(s.frame->Session().m_nCurGroup, 14);
    EXPECT_EQ(view->LineTarget(0), std::make_pair(14, -1));
    s.ClickTree(params->child(0));  // group 14 is shown already
    EXPECT_EQ(view->FillCount(), fills + 1);

    // A row the editor changed is marked, once, when the document announces it, and stays
    // marked over a refresh until a write sends it.
    CM330Doc& doc = *s.frame->Document();
    const QString before = view->item(1, 3)->text();
    doc.SetSetValue(14, 1, QStringLiteral("7"), RowMark::Changed);
    doc.SetSetValue(14, 2, doc.RowAt(14, 2).m_strSetValue);
    EXPECT_EQ(view->item(1, 3)->text(), before);  // one refill after the changes
    QCoreApplication::processEvents();
    EXPECT_EQ(view->FillCount(), fills + 2);
    EXPECT_EQ(view->item(1, 3)->text(), "  7");
    EXPECT_NE(view->item(1, 1)->background().style(), Qt::NoBrush);
    EXPECT_EQ(view->item(2, 1)->background().style(), Qt::NoBrush);
    view->OnRefreshList();
    EXPECT_NE(view->item(1, 1)->background().style(), Qt::NoBrush);
    doc.MarkWritten(14, 1);
    QCoreApplication::processEvents();
    EXPECT_FALSE(doc.RowChanged(14, 1));
    EXPECT_EQ(view->item(1, 1)->background().style(), Qt::NoBrush);

    // Closing the project empties the tree and brings menu 128 back.
    s.frame->OnCommand(CmdId::Close);
    EXPECT_EQ(s.frame->Document(), nullptr);
    EXPECT_EQ(tree->topLevelItemCount(), 0);
    EXPECT_EQ(s.frame->CurrentMenuId(), 128);
    EXPECT_EQ(s.frame->StatusPaneText(0), "File name:");
    s.frame->hide();
}

TEST(MainFrame, ProjectWindowStaysMaximisedAndItsCloseBoxAsks) {
    ScriptedPrompt prompt;
    Session s;
    s.frame->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(s.frame));
    s.NewProject("R770-402-Kxx");
    CChildFrame* child = s.frame->ChildFrame();
    ASSERT_NE(child, nullptr);
    child->showNormal();
    QTRY_VERIFY(child->isMaximized());
    EXPECT_EQ(child->systemMenu(), nullptr);
    EXPECT_FALSE(child->windowFlags() & Qt::WindowMinimizeButtonHint);
    EXPECT_FALSE(child->windowFlags() & Qt::WindowMaximizeButtonHint);

    s.frame->Document()->SetModifiedFlag();
    prompt.Answer(Answer::Cancel);
    EXPECT_FALSE(child->close());
    EXPECT_EQ(s.frame->Tree()->topLevelItemCount(), 0);  // cleared before the question
    ASSERT_NE(s.frame->Document(), nullptr);
    prompt.Answer(Answer::No);
    EXPECT_TRUE(child->close());
    EXPECT_EQ(s.frame->Document(), nullptr);
    EXPECT_EQ(s.frame->ChildFrame(), nullptr);
    s.frame->UpdateCommandUI();
    EXPECT_EQ(s.frame->CurrentMenuId(), 128);
    s.frame->hide();
}

// The manual shipped beside the program opens in its own window; without it, the old message.
TEST(MainFrame, HelpShowsTheManualOrSaysItIsMissing) {
    ScriptedPrompt prompt;
    Session s;
    s.frame->OnCommand(CmdId::Help);
    EXPECT_EQ(prompt.Messages(), QStringList{"Can't find file Help.chm!"});
    EXPECT_EQ(s.frame->findChild<CHelpDlg*>(), nullptr);

    ASSERT_TRUE(QDir(s.dir.Path()).mkpath("help"));
    s.dir.Write("help/index.html", "<html><head><title>Manual</title></head>"
                                   "<body><h1>Connecting</h1></body></html>");
    s.frame->OnCommand(CmdId::Help);
    s.frame->OnCommand(CmdId::Help);  // the same window again
    EXPECT_EQ(prompt.Messages().size(), 1);
    const auto windows = s.frame->findChildren<CHelpDlg*>();
    ASSERT_EQ(windows.size(), 1);
    EXPECT_TRUE(windows[0]->isVisible());
    EXPECT_EQ(windows[0]->windowTitle(), "Manual");
    EXPECT_TRUE(windows[0]->Browser()->toPlainText().contains("Connecting"));
    windows[0]->close();
}

TEST(MainFrame, DroppedProjectFileOpens) {
    ScriptedPrompt prompt;
    Session s;
    SessionState other;
    other.m_strAppDir = s.dir.Path();
    other.m_nModelCode = 405;
    other.m_strModelName = "R770-405-Kxx";
    QString error;
    {
        CM330Doc doc(other);
        doc.RowAt(0, 3).m_strSetValue = "2";
        ASSERT_TRUE(SaveProjectDocument(doc, s.dir.File("dropped.qpj"), error));
    }
    const auto drop = [&](const QString& path) {
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &mime, Qt::LeftButton, {});
        QCoreApplication::sendEvent(s.frame, &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent dropEvent(QPointF(50, 50), Qt::CopyAction, &mime, Qt::LeftButton, {});
        QCoreApplication::sendEvent(s.frame, &dropEvent);
        return true;
    };
    s.dir.Write("notes.txt", "x");
    EXPECT_FALSE(drop(s.dir.File("notes.txt")));

    // Under auto refresh a drop is refused like Open.
    s.frame->Session().m_bAutoRefresh = 1;
    EXPECT_TRUE(drop(s.dir.File("dropped.qpj")));
    EXPECT_EQ(prompt.Messages(), QStringList{"PC software is under auto-refresh,Please stop auto-refresh first!"});
    EXPECT_EQ(s.frame->Document(), nullptr);

    s.frame->Session().m_bAutoRefresh = 0;
    EXPECT_TRUE(drop(s.dir.File("dropped.qpj")));
    ASSERT_NE(s.frame->Document(), nullptr);
    EXPECT_EQ(s.frame->Document()->RowAt(0, 3).m_strSetValue, "2");
    EXPECT_EQ(s.frame->Session().m_nModelCode, 405);
    EXPECT_EQ(s.frame->StatusPaneText(0), "File name:dropped.qpj");
    EXPECT_EQ(s.frame->StatusPaneText(3), "Model:R770-405-Kxx");
    EXPECT_EQ(s.frame->ChildFrame()->windowTitle(), "dropped.qpj");
    EXPECT_EQ(s.frame->Tree()->topLevelItemCount(), 1);
    EXPECT_EQ(s.frame->CurrentMenuId(), 129);
}

// Each File New / File Close cycle gives back what it took: after a warm-up the heap in use stays
// where it was (it grew by over a kilobyte a cycle while every paint of the menu bar's window
// buttons left new icon pixmaps in the pixmap cache).
TEST(MainFrame, NewThenCloseKeepsNoMemory) {
    ScriptedPrompt prompt;
    Session s;
    s.frame->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(s.frame));
    const auto cycles = [&](int n) {
        for (int i = 0; i < n; ++i) {
            s.NewProject("R770-2P5-Kxx");
            s.frame->OnCommand(CmdId::Close);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        return mallinfo2().uordblks;
    };
    const std::size_t warm = cycles(60);
    EXPECT_LT(cycles(50), warm + 15000);
    s.frame->hide();
}
