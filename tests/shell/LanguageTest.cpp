// View > Language: the English form and back, without a restart, and the choice kept. Pictures of
// the main window and the editor in both forms with QUILLON_SCREENSHOT_DIR.

#include "base/Language.h"
#include "editing/ParamEditorDlg.h"
#include "editing/ParamSelectDlg.h"
#include "exchange/CompareDlg.h"
#include "exchange/CompareRows.h"
#include "exchange/ExportFormatDlg.h"
#include "exchange/PrintTitleDlg.h"
#include "link/AssignIpDlg.h"
#include "link/ConnectDlg.h"
#include "link/DriveSerial.h"
#include "link/SetIpDlg.h"
#include "monitor/GraphDlg.h"
#include "monitor/KeyPadDlg.h"
#include "monitor/MonitorContext.h"
#include "monitor/MonitorControlDlg.h"
#include "monitor/MonitorStatusDlg.h"
#include "monitor/MonitorUi.h"
#include "monitor/ParamSetDlg.h"
#include "monitor/SetTimeDlg.h"
#include "params/ModelSelectDlg.h"
#include "params/ParamNames.h"
#include "shell/AboutDlg.h"
#include "transfer/HeadlessWindows.h"
#include "transfer/TransferDialogs.h"
#include "shell/CommandIds.h"
#include "shell/M330View.h"
#include "shell/ProjectTree.h"
#include "support/AppSession.h"
#include "support/ScriptedPrompt.h"
#include "support/WidgetTestSupport.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPrinter>
#include <QScopeGuard>
#include <QTabBar>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

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

// The English form leaves no Chinese word in any window: every dialog is built in English and its
// titles, labels, buttons, lists, tables and tabs are read back. Painted pictures (the monitor's
// panels) are not read here; their words come from the same translation.
namespace {

bool HasChinese(const QString& text) {
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if ((u >= 0x4e00 && u <= 0x9fff) || (u >= 0x3000 && u <= 0x303f) || (u >= 0xff00 && u <= 0xffef))
            return true;
    }
    return false;
}

// Every text `window` and its children show, each with where it stands, that has a Chinese word.
QStringList ChineseTexts(QWidget& window) {
    QStringList found;
    const auto check = [&](const QObject* where, const QString& text) {
        if (HasChinese(text))
            found << QStringLiteral("%1/%2: %3")
                         .arg(QString::fromLatin1(window.metaObject()->className()),
                              QString::fromLatin1(where->metaObject()->className()), text);
    };
    QList<QWidget*> widgets = window.findChildren<QWidget*>();
    widgets.prepend(&window);
    for (QWidget* w : widgets) {
        if (w->isWindow()) check(w, w->windowTitle());
        check(w, w->toolTip());
        for (QAction* a : w->actions())
            if (a->text() != QStringLiteral("中文(&C)")) check(w, a->text());  // offered in its own words
        if (auto* label = qobject_cast<QLabel*>(w)) check(w, label->text());
        if (auto* button = qobject_cast<QAbstractButton*>(w)) check(w, button->text());
        if (auto* box = qobject_cast<QGroupBox*>(w)) check(w, box->title());
        if (auto* combo = qobject_cast<QComboBox*>(w))
            for (int i = 0; i < combo->count(); ++i) check(w, combo->itemText(i));
        if (auto* tabs = qobject_cast<QTabBar*>(w))
            for (int i = 0; i < tabs->count(); ++i) check(w, tabs->tabText(i));
        if (auto* table = qobject_cast<QTableWidget*>(w)) {
            for (int c = 0; c < table->columnCount(); ++c)
                if (auto* h = table->horizontalHeaderItem(c)) check(w, h->text());
            for (int r = 0; r < table->rowCount(); ++r)
                for (int c = 0; c < table->columnCount(); ++c)
                    if (auto* item = table->item(r, c)) check(w, item->text());
        }
        if (auto* menu = qobject_cast<QMenu*>(w)) check(w, menu->title());
    }
    return found;
}

}  // namespace

TEST(Language, EnglishFormLeavesNoChineseInAnyWindow) {
    test::ScriptedPrompt prompt;
    test::AppSession s;
    const auto restore = qScopeGuard([&] { s.frame->OnCommand(CmdId::LanguageSystem); });
    s.frame->OnCommand(CmdId::LanguageEnglish);
    QCoreApplication::processEvents();
    QStringList found = ChineseTexts(*s.frame);  // the menu bar without a project
    s.NewProject("R770-201-Kxx");
    found << ChineseTexts(*s.frame);
    CM330Doc& doc = *s.frame->Document();
    SessionState& session = s.frame->Session();

    std::vector<std::unique_ptr<QWidget>> windows;
    for (int g = 0; g < kGroupCount; ++g) {
        auto editor = std::make_unique<CParamEditorDlg>(
            EditorEnvironment{session, doc, [] { return nullptr; }, {}});
        editor->m_nGroupIndex = g;
        editor->OnInitDialog();
        windows.push_back(std::move(editor));
    }
    CDriveSerial noLink;
    CHeadlessWindows transfer(session, noLink);
    windows.push_back(std::make_unique<CCommParamDlg>(session, transfer));
    windows.push_back(std::make_unique<CUnwrittenParamDlg>(MotorListInLanguage(doc)));
    windows.push_back(std::make_unique<CWriteDlg>(std::vector<int>{1, 2}));
    windows.push_back(std::make_unique<CPasswordSetDlg>());
    windows.push_back(std::make_unique<CChangePasswordDlg>());
    windows.push_back(std::make_unique<CPasswordInputDlg>());
    windows.push_back(std::make_unique<CCompareSelectDlg>(true));
    QPrinter printer;
    auto compare = std::make_unique<CCompareDlg>(printer);
    compare->Fill(kCompareDefaultSet, CompareRows(doc, kCompareDefaultSet));
    windows.push_back(std::move(compare));
    windows.push_back(std::make_unique<CConnectDlg>(s.frame->LinkSession()));
    windows.push_back(std::make_unique<CSetIpDlg>(QStringLiteral("127.0.0.1"), QStringLiteral("a")));
    windows.push_back(std::make_unique<CAssignIpDlg>());
    windows.push_back(std::make_unique<CParamSelectDlg>(1));
    windows.push_back(std::make_unique<CExportFormatDlg>());
    windows.push_back(std::make_unique<CPrintTitleDlg>(doc.m_printTitles));
    windows.push_back(std::make_unique<CAboutDlg>());
    windows.push_back(std::make_unique<CModelSelectDlg>(session, s.dir.Path()));
    const MonitorContext monitor = MonitorContextOf(*s.frame);
    windows.push_back(std::make_unique<CMonitorStatusDlg>(monitor, 0));
    windows.push_back(std::make_unique<CMonitorControlDlg>(monitor, 0));
    windows.push_back(std::make_unique<CKeyPadDlg>(monitor));
    windows.push_back(std::make_unique<CGraphDlg>(monitor, session.m_graphSettings));
    windows.push_back(std::make_unique<CParamSetDlg>(std::vector<int>{1}, session.m_graphSettings));
    windows.push_back(std::make_unique<CSetTimeDlg>(100));
    for (auto& w : windows) {
        found << ChineseTexts(*w);
        const QString name = QString::fromLatin1(w->metaObject()->className()).remove("quillon::");
        test::SaveScreenshot(*w, QStringLiteral("en-%1-%2.png").arg(name).arg(&w - windows.data()));
    }
    EXPECT_TRUE(found.isEmpty()) << found.join(u'\n').toStdString();
}
