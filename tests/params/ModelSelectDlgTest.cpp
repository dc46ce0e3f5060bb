// The Model Select dialog, driven as a person would.

#include "params/ModelSelectDlg.h"
#include "support/ScriptedPrompt.h"
#include "support/TestDirs.h"

#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

using namespace quillon;
using quillon::test::ScriptedPrompt;
using quillon::test::TempAppDir;

TEST(ModelSelectDlg, ListsTheModelsAndPreselectsTheSessionModel) {
    TempAppDir dir;
    SessionState s;
    s.m_strModelName = "r770-20";  // the list's own prefix search ignores case
    s.m_nFreqClass = 1;
    CModelSelectDlg dlg(s, dir.Path());
    ASSERT_EQ(dlg.ModelList()->count(), 19);
    EXPECT_EQ(dlg.ModelList()->itemText(0), "R770-1P2-Kxx");
    EXPECT_EQ(dlg.ModelList()->currentText(), "R770-201-Kxx");
    EXPECT_FALSE(dlg.Description()->text().isEmpty());
    // The frequency starts at 50 Hz whatever the last project used.
    EXPECT_EQ(dlg.FrequencyList()->currentText(), "50.00");

    const QString before = dlg.Description()->text();
    dlg.ModelList()->setCurrentIndex(dlg.ModelList()->findText("R770-415-Kxx"));
    EXPECT_NE(dlg.Description()->text(), before);

    dlg.FrequencyList()->setCurrentIndex(1);
    dlg.accept();
    EXPECT_EQ(s.m_strModelName, "R770-415-Kxx");
    EXPECT_EQ(s.m_nFreqClass, 1);
}

TEST(ModelSelectDlg, MissingFileGivesEmptyListsAndAnEmptyName) {
    TempAppDir dir;
    dir.Remove("R770.SPE");
    SessionState s;
    s.m_strModelName = "R770-201-Kxx";
    CModelSelectDlg dlg(s, dir.Path());
    EXPECT_EQ(dlg.ModelList()->count(), 0);
    dlg.accept();
    EXPECT_TRUE(s.m_strModelName.isEmpty());
}

TEST(ModelSelectDlg, ModelWithoutDescriptionReportsTheRangeFailureAndStaysUsable) {
    TempAppDir dir;
    dir.Write("R770.SPE", "TYPE:R770-101-Kxx;\nTYPE:R770-201-Kxx;\nonly one description\n");
    SessionState s;
    CModelSelectDlg dlg(s, dir.Path());
    dlg.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dlg));
    EXPECT_EQ(dlg.Description()->text(), "only one description\r\n");

    ScriptedPrompt prompt;
    // Choosing the second model by keyboard: its description index lies past the list.
    dlg.ModelList()->setFocus();
    QTest::keyClick(dlg.ModelList(), Qt::Key_Down);
    EXPECT_EQ(dlg.ModelList()->currentIndex(), 1);
    EXPECT_EQ(prompt.Messages(), QStringList{"invalid vector<T> subscript"});
    dlg.accept();
    EXPECT_EQ(s.m_strModelName, "R770-201-Kxx");
}
