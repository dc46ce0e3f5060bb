// View > Language: the English form and back, without a restart, and the choice kept. Pictures of
// the main window and the editor in both forms with QUILLON_SCREENSHOT_DIR.

#include "base/Language.h"
#include "editing/ParamEditorDlg.h"
#include "shell/CommandIds.h"
#include "shell/M330View.h"
#include "shell/ProjectTree.h"
#include "support/AppSession.h"
#include "support/ScriptedPrompt.h"
#include "support/WidgetTestSupport.h"

#include <QCoreApplication>
#include <QScopeGuard>
#include <QTest>
#include <gtest/gtest.h>

using namespace quillon;

TEST(Language, SwitchRewordsMenusTreeAndListAndIsKept) {
    EXPECT_EQ(LanguageFromSetting("", QLocale::English), UiLanguage::English);
    EXPECT_EQ(LanguageFromSetting("", QLocale::Chinese), UiLanguage::System);
    EXPECT_EQ(LanguageFromSetting("system", QLocale::English), UiLanguage::System);

    test::ScriptedPrompt prompt;
    test::AppSession s;
    const auto restore = qScopeGuard([&] { s.frame->OnCommand(CmdId::LanguageSystem); });
    s.NewProject("R770-201-Kxx");
    CM330View* view = s.frame->View();
    ASSERT_NE(view, nullptr);
    s.frame->resize(1100, 700);
    s.frame->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(s.frame));
    const auto switchTo = [&](int id, const char* suffix) {
        s.frame->OnCommand(id);
        QCoreApplication::processEvents();  // the windows hear of the change from a posted event
        test::SaveScreenshot(*s.frame, QStringLiteral("main-window%1.png").arg(suffix));
        CParamEditorDlg editor(EditorEnvironment{s.frame->Session(), *s.frame->Document(),
                                                 [] { return nullptr; }, {}});
        editor.m_nGroupIndex = 0;
        editor.OnInitDialog();
        editor.show();
        test::SaveScreenshot(editor, QStringLiteral("editor-group00%1.png").arg(suffix));
    };
    const auto texts = [&] {
        return QStringList{view->item(0, 1)->text(), view->item(1, 1)->text(),
                           s.frame->Tree()->topLevelItem(0)->child(0)->child(0)->text(0),
                           s.frame->Action(CmdId::GroupCommand(0))->text(),
                           s.frame->Action(CmdId::PasswordSet)->text()};
    };
    const QStringList own{"  群组 00: 基本功能", "    00-00 控制模式", "群组 00: 基本功能",
                          "群组 00: 基本功能", "设置...(&R)"};
    EXPECT_EQ(texts(), own);
    const QString ini = LanguageIniPath(s.frame->SettingsIniPath());

    switchTo(CmdId::LanguageEnglish, "-en");
    EXPECT_EQ(texts(), (QStringList{"  Group 00: Basic functions", "    00-00 Control mode",
                                    "Group 00: Basic functions", "Group 00: Basic functions",
                                    "Set Passwo&rd..."}));
    EXPECT_TRUE(s.frame->Action(CmdId::LanguageEnglish)->isChecked());
    EXPECT_EQ(ReadLanguageSetting(ini), UiLanguage::English);

    switchTo(CmdId::LanguageSystem, "");
    EXPECT_EQ(texts(), own);
    EXPECT_EQ(ReadLanguageSetting(ini), UiLanguage::System);
}
