#pragma once
// "R770 Parameter": the modal editor of one parameter group. All 33 pages are built with it;
// only the opened group's pages are placed on its tab strip. The front tab follows the row it
// was opened on (EditorTable.h). A tab change checks nothing and keeps what was typed. OK takes
// every page's controls, checks the pages and only then saves them all into the project, so a
// refused value leaves the project as it was and brings its page to the front; Cancel saves
// nothing. "Transmit Group" sends the group as the pages hold it (GroupTransmit.h), and "Small
// Keyboard" opens the number pad over the field last used.

#include "editing/ParamPage.h"
#include "editing/SmallKeyboardDlg.h"

#include <QDialog>
#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

#include <QLineEdit>
class QPushButton;
class QTabBar;

namespace quillon {

// What the editor works on; the link is asked for at each use.
struct EditorEnvironment {
    SessionState& session;
    CM330Doc& doc;
    std::function<CDriveSerial*()> link;
    std::function<void()> refreshList;  // the main view's list from the project
};

class CParamEditorDlg : public QDialog {
    Q_OBJECT
public:
    explicit CParamEditorDlg(EditorEnvironment env, QWidget* parent = nullptr);
    ~CParamEditorDlg() override;

    // Places the group's pages and chooses the front tab; exec() does it first. Once only.
    void OnInitDialog();
    int exec() override;
    void accept() override;  // OK
    void reject() override;  // Cancel and the close box

    void OnTransmitGroup();
    void OnSmallKeyboard();

    int m_nGroupIndex = -1;
    int m_nRowIndex = -1;

    // For tests, pictures and the bench.
    QTabBar* TabBar() const { return m_tabs; }
    QPushButton* TransmitButton() const { return m_transmit; }
    QPushButton* KeyboardButton() const { return m_keyboardButton; }
    CSmallKeyboardDlg* Keyboard() const { return m_keyboard; }
    // The group's pages in tab order, and the one shown (nullptr for none).
    const std::vector<CParamPage*>& GroupPages() const { return m_groupPages; }
    CParamPage* ShownPage() const;
    int BuiltPageCount() const { return static_cast<int>(m_allPages.size()); }

private:
    void ShowTab(int tab);
    void BringToFront(CParamPage* page);
    bool TakeAndCheckPages();
    void CloseKeyboard();
    void OnFocusChanged(QWidget* now);
    PageContext* Context();

    EditorEnvironment m_env;
    std::vector<std::unique_ptr<CParamPage>> m_allPages;
    std::vector<CParamPage*> m_groupPages;
    std::unique_ptr<PageContext> m_context;
    float m_fDriveVersion = 0.0f;
    QTabBar* m_tabs;
    QWidget* m_pageArea;
    QPushButton* m_transmit;
    QPushButton* m_keyboardButton;
    QPointer<CSmallKeyboardDlg> m_keyboard;
    QPointer<QLineEdit> m_lastEdit;
    bool m_bInited = false;
};

}  // namespace quillon
