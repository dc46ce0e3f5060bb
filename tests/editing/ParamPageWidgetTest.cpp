// The page widget built from each page's data: every page comes up with its rows, typing goes
// through the filter at each keystroke, the editor's row is marked red, a digit names its hint.
// With QUILLON_SCREENSHOT_DIR set, a picture of each of the 33 pages lands there.

#include "base/Globals.h"
#include "editing/ParamPage.h"
#include "params/M330Doc.h"
#include "support/ScriptedPrompt.h"
#include "support/TestDirs.h"
#include "support/WidgetTestSupport.h"
#include "ui/ColourLabel.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

namespace quillon::test {
namespace {

class ParamPageWidgetTest : public ::testing::Test {
protected:
    ParamPageWidgetTest() {
        g_strAppDir = DataDir();
        m_session.m_strAppDir = DataDir();
        m_doc = std::make_unique<CM330Doc>(m_session);
        m_doc->OnNewDocument();
    }
    std::unique_ptr<CParamPage> Open(int templateId, int selectedRow = -1) {
        auto page = std::make_unique<CParamPage>(*PageByTemplate(templateId));
        page->Logic().m_selectedRow = selectedRow;
        page->OnInit(*m_doc, m_session.m_nModelCode);
        page->resize(page->sizeHint().expandedTo(QSize(560, 0)));
        page->show();
        return page;
    }
    SessionState m_session;
    std::unique_ptr<CM330Doc> m_doc;
};

TEST_F(ParamPageWidgetTest, EveryPageShowsItsRows) {
    for (const PageSpec& spec : PageSpecs()) {
        auto page = Open(spec.templateId);
        for (int s = 0; s < spec.RowCount(); ++s) {
            const PageControl& c = page->Logic().Control(s);
            EXPECT_EQ(page->LabelAt(s)->text(), m_doc->RowAt(spec.group, c.row).m_strName);
            if (page->EditAt(s)) {
                EXPECT_EQ(page->EditAt(s)->text(), c.text);
            }
            if (page->ComboAt(s)) {
                EXPECT_EQ(page->ComboAt(s)->count(), int(OptionsOf(*c.spec).size()));
            }
        }
        SaveScreenshot(*page, QStringLiteral("page_%1.png").arg(spec.templateId));
    }
}

TEST_F(ParamPageWidgetTest, TypingMarkingAndHints) {
    auto page = Open(5782, 11);  // tab 1 of group 00: row 11 is its second label
    EXPECT_TRUE(page->LabelAt(1)->IsMarked());
    EXPECT_FALSE(page->LabelAt(0)->IsMarked());
    QLineEdit* edit = page->EditAt(1);  // 00-11, two decimals
    edit->clear();
    QTest::keyClicks(edit, "12.345");
    EXPECT_EQ(edit->text(), "12.34");
    edit->clear();
    QTest::keyClicks(edit, ".5");
    EXPECT_EQ(edit->text(), "5");  // the leading point was refused, the 5 taken

    auto stall = Open(5790);  // 08-00: choosing digit 3 as 1 names it
    QComboBox* digit = stall->DigitsAt(0).at(2);
    digit->setCurrentIndex(1);
    emit digit->activated(1);
    EXPECT_EQ(stall->HintAt(0)->text(), "Disable Trip Prevention in Run Mode");
    EXPECT_EQ(stall->DigitsAt(5).size(), 3u);  // 08-05 shows three digits
}

}  // namespace
}  // namespace quillon::test
