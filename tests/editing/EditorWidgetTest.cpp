// The parameter editor, the Small Keyboard and Parameter Select as a person meets them on the
// main window: opened by the menu and by the list's double click, keystrokes and clicks through
// QTest, messages through the scripted prompt. Pictures with QUILLON_SCREENSHOT_DIR.

#include "editing/EditorUi.h"
#include "editing/ParamEditorDlg.h"
#include "editing/ParamSelectDlg.h"
#include "editing/SmallKeyboardDlg.h"
#include "shell/CommandIds.h"
#include "shell/CommandTable.h"
#include "shell/M330View.h"
#include "shell/ProjectTree.h"
#include "shell/ProjectTreeRules.h"
#include "support/AppSession.h"
#include "support/ScriptedPrompt.h"
#include "support/WidgetTestSupport.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>

namespace quillon::test {
namespace {

class EditorTest : public ::testing::Test {
protected:
    void SetUp() override { m_app.NewProject(QStringLiteral("R770-2P5-Kxx")); }
    void TearDown() override {
        if (CM330Doc* doc = m_app.frame->Document()) doc->SetModifiedFlag(false);
        m_app.frame->close();
    }
    CMainFrame& Frame() { return *m_app.frame; }
    CM330Doc& Doc() { return *Frame().Document(); }
    std::unique_ptr<CParamEditorDlg> Editor(int group, int row) {
        auto dlg = std::make_unique<CParamEditorDlg>(
            EditorEnvironment{Frame().Session(), Doc(), [] { return nullptr; }, {}});
        dlg->m_nGroupIndex = group;
        dlg->m_nRowIndex = row;
        dlg->OnInitDialog();
        dlg->show();
        return dlg;
    }
    // The edit field of group row `row` on the editor's page `tab`.
    static QLineEdit* Field(CParamEditorDlg& dlg, int tab, int row) {
        CParamPage* page = dlg.GroupPages().at(static_cast<std::size_t>(tab));
        return page->EditAt(page->Page().SlotOf(row));
    }

    ScriptedPrompt m_prompt;
    AppSession m_app;
};

TEST_F(EditorTest, TabsAndTheFrontPageFollowTheRow) {
    auto dlg = Editor(0, -1);
    EXPECT_EQ(dlg->windowTitle(), "R770 Parameter");
    EXPECT_EQ(dlg->BuiltPageCount(), 33);
    ASSERT_EQ(dlg->TabBar()->count(), 3);
    EXPECT_EQ(dlg->TabBar()->tabText(0), Doc().GroupAt(0).m_strName + "-> 00-00 - 00-09 ");
    EXPECT_EQ(dlg->TabBar()->tabText(2), "        00-20        ");
    EXPECT_EQ(dlg->ShownPage(), dlg->GroupPages()[0]);
    EXPECT_FALSE(dlg->TransmitButton()->isEnabled());  // offline
    SaveScreenshot(*dlg, "editor-group00.png");

    // Group 09 opened on row 11: no page until a tab is clicked, also the current one.
    auto nine = Editor(9, 11);
    EXPECT_EQ(nine->ShownPage(), nullptr);
    QTest::mouseClick(nine->TabBar(), Qt::LeftButton, {},
                      nine->TabBar()->tabRect(nine->TabBar()->currentIndex()).center());
    EXPECT_NE(nine->ShownPage(), nullptr);

    // Group 05 on row 22: the third tab, its row marked red.
    auto five = Editor(5, 22);
    EXPECT_EQ(five->ShownPage(), five->GroupPages()[2]);
    EXPECT_EQ(five->ShownPage()->Logic().MarkedSlot(), 2);
    for (int t = 0; t < five->TabBar()->count(); ++t) {
        QTest::mouseClick(five->TabBar(), Qt::LeftButton, {}, five->TabBar()->tabRect(t).center());
        EXPECT_EQ(five->ShownPage(), five->GroupPages()[static_cast<std::size_t>(t)]);
        SaveScreenshot(*five, QStringLiteral("editor-group05-tab%1.png").arg(t));
    }
    auto simple = Editor(14, -1);
    EXPECT_EQ(simple->TabBar()->count(), 4);
    for (int t = 0; t < 4; ++t) {
        simple->TabBar()->setCurrentIndex(t);
        SaveScreenshot(*simple, QStringLiteral("editor-groupF-tab%1.png").arg(t));
    }
}

TEST_F(EditorTest, OkChecksEveryPageFirstAndCancelKeepsTheProject) {
    auto dlg = Editor(0, -1);
    const QString before = Doc().RowAt(0, 12).m_strSetValue;
    // A value beyond its range on the second page, typed while the first page is in front.
    QLineEdit* field = Field(*dlg, 1, 12);
    field->setText("0.00");
    Field(*dlg, 0, 0);
    dlg->accept();
    EXPECT_EQ(m_prompt.Messages().last(), "Beyond the range!");
    EXPECT_TRUE(dlg->isVisible());
    EXPECT_EQ(dlg->TabBar()->currentIndex(), 1);
    EXPECT_EQ(dlg->ShownPage(), dlg->GroupPages()[1]);
    EXPECT_EQ(Doc().RowAt(0, 12).m_strSetValue, before);

    field->setText("55");
    dlg->reject();
    EXPECT_EQ(Doc().RowAt(0, 12).m_strSetValue, before);

    auto again = Editor(0, 12);
    EXPECT_EQ(again->ShownPage(), again->GroupPages()[1]);
    Field(*again, 1, 12)->setText("55");
    again->accept();
    EXPECT_EQ(again->result(), QDialog::Accepted);
    EXPECT_EQ(Doc().RowAt(0, 12).m_strSetValue, "55.00");
    EXPECT_TRUE(Doc().RowChanged(0, 12));
}

TEST_F(EditorTest, MenuRouteLeavesTheModifiedMarkTheListRouteSetsIt) {
    OnNextModal<CParamEditorDlg>([](CParamEditorDlg& dlg) {
        EXPECT_EQ(dlg.m_nGroupIndex, 1);  // 32787 opens group 01
        EXPECT_EQ(dlg.m_nRowIndex, -1);
        dlg.accept();
    });
    Frame().OnCommand(CmdId::Group01);
    EXPECT_FALSE(Doc().IsModified());

    // Group 02 in the list: 02-15 is its eighth listed row (02-07..02-14 are none).
    Frame().Session().m_nCurGroup = 2;
    Frame().show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Frame()));
    CM330View& view = *Frame().View();
    view.FillList();
    int group = -1, row = -1;
    OnNextModal<CParamEditorDlg>([&](CParamEditorDlg& dlg) {
        group = dlg.m_nGroupIndex;
        row = dlg.m_nRowIndex;
        dlg.reject();
    });
    view.scrollToItem(view.item(8, 1));
    const QRect cell = view.visualItemRect(view.item(8, 1));
    auto doubleClick = [&] {
        QTest::mousePress(view.viewport(), Qt::LeftButton, {}, cell.center());
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, cell.center());
    };
    doubleClick();
    EXPECT_EQ(std::make_pair(group, row), std::make_pair(2, 7));
    EXPECT_FALSE(Doc().IsModified());  // Cancel

    OnNextModal<CParamEditorDlg>([](CParamEditorDlg& dlg) { dlg.accept(); });
    doubleClick();
    EXPECT_TRUE(Doc().IsModified());
}

TEST_F(EditorTest, SmallKeyboardTypesIntoTheModalEditorsFieldThroughItsFilter) {
    QStringList typed;
    OnNextModal<CParamEditorDlg>([&](CParamEditorDlg& dlg) {
        dlg.KeyboardButton()->click();
        CSmallKeyboardDlg* pad = dlg.Keyboard();
        EXPECT_TRUE(pad && pad->isVisible());
        dlg.KeyboardButton()->click();  // once only
        EXPECT_EQ(dlg.Keyboard(), pad);
        auto key = [&](char c) {
            QTest::mouseClick(pad->findChild<QPushButton*>(QStringLiteral("key") + QChar(c)),
                              Qt::LeftButton);
        };
        key('5');  // no field used yet: nothing
        QApplication::setActiveWindow(&dlg);
        QLineEdit* field = Field(dlg, 1, 12);
        dlg.TabBar()->setCurrentIndex(1);
        field->setFocus();
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        EXPECT_EQ(pad->Target(), field);
        key('.');  // refused as the first character
        typed << field->text();
        for (char c : {'5', '5', '.', '.', '2'}) key(c);  // the second point refused
        typed << field->text() << QString::number(field->cursorPosition());
        SaveScreenshot(*pad, "small-keyboard.png");
        SaveScreenshot(dlg, "small-keyboard-field.png");
        dlg.accept();
        EXPECT_FALSE(pad->isVisible());
    });
    Frame().OnCommand(CmdId::Group00);
    EXPECT_EQ(typed, (QStringList{"", "55.2", "4"}));
    EXPECT_EQ(Doc().RowAt(0, 12).m_strSetValue, "55.20");
}

TEST_F(EditorTest, ParameterSelectSwitchesMenusTreeAndList) {
    CM330View& view = *Frame().View();
    const int fills = view.FillCount();
    OnNextModal<CParamSelectDlg>([](CParamSelectDlg& dlg) {
        EXPECT_TRUE(dlg.CompleteButton()->isChecked());
        dlg.accept();  // the mode in force: nothing happens
    });
    Frame().OnCommand(CmdId::ParamSelect);
    EXPECT_EQ(view.FillCount(), fills);

    OnNextModal<CParamSelectDlg>([](CParamSelectDlg& dlg) {
        QTest::mouseClick(dlg.SimplifiedButton(), Qt::LeftButton);
        dlg.accept();
    });
    Frame().OnCommand(CmdId::ParamSelect);
    EXPECT_EQ(Frame().Session().m_bCompleteParams, 0);
    EXPECT_TRUE(Frame().Action(CmdId::SimplifiedGroup)->isEnabled());
    EXPECT_FALSE(Frame().Action(CmdId::Group00)->isEnabled());
    EXPECT_NE(Frame().Tree()->FindByData(TreeData::Simplified), nullptr);
    EXPECT_EQ(Frame().Tree()->FindByData(TreeData::FirstGroup), nullptr);
    EXPECT_EQ(view.LineTarget(0)->first, 14);
    EXPECT_EQ(view.LineTarget(view.rowCount() - 1)->first, 14);

    OnNextModal<CParamEditorDlg>([](CParamEditorDlg& dlg) {
        EXPECT_EQ(dlg.GroupPages().size(), 4u);
        dlg.reject();
    });
    Frame().OnCommand(CmdId::SimplifiedGroup);
}

}  // namespace
}  // namespace quillon::test
