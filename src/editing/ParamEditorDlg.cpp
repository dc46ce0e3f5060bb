#include "editing/ParamEditorDlg.h"

#include "base/ErrorReport.h"
#include "base/SessionState.h"
#include "editing/EditorTable.h"
#include "editing/GroupTransmit.h"
#include "editing/SmallKeyboardDlg.h"
#include "params/M330Doc.h"
#include "params/ParamNames.h"
#include "ui/ModalLinkWork.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QVBoxLayout>

namespace quillon {

CParamEditorDlg::CParamEditorDlg(EditorEnvironment env, QWidget* parent)
    : QDialog(parent),
      m_env(std::move(env)),
      m_tabs(new QTabBar(this)),
      m_pageArea(new QWidget(this)),
      m_transmit(new QPushButton(QStringLiteral("Transmit Group"), this)),
      m_keyboardButton(new QPushButton(QStringLiteral("Small Keyboard"), this)) {
    setWindowTitle(QString::fromLatin1(kEditorCaption));
    // Every page of every group, built now; only the opened group's are placed.
    m_allPages.reserve(PageSpecs().size());
    for (const PageSpec& spec : PageSpecs()) m_allPages.push_back(std::make_unique<CParamPage>(spec));

    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(true);
    m_tabs->setUsesScrollButtons(false);  // every tab in sight: the window grows to hold them
    auto* pageLayout = new QGridLayout(m_pageArea);
    pageLayout->setContentsMargins(4, 0, 4, 4);
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    ok->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* b : {ok, cancel, m_transmit, m_keyboardButton}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(m_pageArea, 1);
    layout->addLayout(buttons);

    connect(ok, &QPushButton::clicked, this, Guarded([this] { accept(); }));
    connect(cancel, &QPushButton::clicked, this, Guarded([this] { reject(); }));
    connect(m_transmit, &QPushButton::clicked, this, Guarded([this] { OnTransmitGroup(); }));
    connect(m_keyboardButton, &QPushButton::clicked, this, Guarded([this] { OnSmallKeyboard(); }));
    // A click on any tab, also the one already current, shows its page.
    connect(m_tabs, &QTabBar::tabBarClicked, this, Guarded([this](int tab) { ShowTab(tab); }));
    connect(m_tabs, &QTabBar::currentChanged, this, Guarded([this](int tab) { ShowTab(tab); }));
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { OnFocusChanged(now); });
}

CParamEditorDlg::~CParamEditorDlg() {
    // No focus report reaches an editor that is half gone; the pad goes with it.
    disconnect(qApp, nullptr, this, nullptr);
    CloseKeyboard();
}

void CParamEditorDlg::OnInitDialog() {
    if (m_bInited) return;
    m_bInited = true;
    m_transmit->setEnabled(m_env.session.m_bOnline != 0);
    const std::span<const PageSpec> all = PageSpecs();
    const std::span<const PageSpec> group = PagesOfGroup(m_nGroupIndex);
    const QString groupName = group.empty() ? QString() : GroupNameOf(m_env.doc.GroupAt(m_nGroupIndex).m_strName);
    const int front = FrontTab(m_nGroupIndex, m_nRowIndex);
    auto* pageLayout = static_cast<QGridLayout*>(m_pageArea->layout());
    {
        const QSignalBlocker block(m_tabs);
        for (const PageSpec& spec : group) {
            CParamPage* page = m_allPages[static_cast<std::size_t>(&spec - all.data())].get();
            m_groupPages.push_back(page);
            m_tabs->addTab(TabText(spec, groupName));
            if (spec.tab == front) page->Logic().m_selectedRow = m_nRowIndex;
            page->setParent(m_pageArea);
            page->hide();
            pageLayout->addWidget(page, 0, 0);
            page->OnInit(m_env.doc, m_env.session.m_nModelCode);
            page->SetContextSource([this] { return Context(); });
            // A refused field brings its page to the front before it takes the focus.
            auto focus = page->Logic().onFocusField;
            page->Logic().onFocusField = [this, page, focus](int slot) {
                BringToFront(page);
                if (focus) focus(slot);
            };
        }
        if (front >= 0) m_tabs->setCurrentIndex(front);
    }
    if (front >= 0) ShowTab(front);
}

int CParamEditorDlg::exec() {
    OnInitDialog();
    return QDialog::exec();
}

PageContext* CParamEditorDlg::Context() {
    m_context = std::make_unique<PageContext>(
        PageContext{m_env.session, m_env.doc, m_env.link ? m_env.link() : nullptr,
                    m_env.refreshList, m_fDriveVersion});
    return m_context.get();
}

CParamPage* CParamEditorDlg::ShownPage() const {
    for (CParamPage* page : m_groupPages)
        if (page->isVisibleTo(m_pageArea)) return page;
    return nullptr;
}

void CParamEditorDlg::ShowTab(int tab) {
    if (tab < 0 || tab >= static_cast<int>(m_groupPages.size())) return;
    for (CParamPage* page : m_groupPages) page->hide();
    CParamPage* page = m_groupPages[static_cast<std::size_t>(tab)];
    page->show();
    page->setFocus(Qt::TabFocusReason);
}

void CParamEditorDlg::BringToFront(CParamPage* page) {
    for (std::size_t t = 0; t < m_groupPages.size(); ++t) {
        if (m_groupPages[t] != page) continue;
        const QSignalBlocker block(m_tabs);
        m_tabs->setCurrentIndex(static_cast<int>(t));
        for (CParamPage* other : m_groupPages) other->setVisible(other == page);
    }
}

bool CParamEditorDlg::TakeAndCheckPages() {
    for (CParamPage* page : m_groupPages)
        if (!page->TakeControls()) {
            BringToFront(page);
            return false;
        }
    for (CParamPage* page : m_groupPages)
        if (page->Logic().HasCheckPage() && !page->CheckPage()) {
            BringToFront(page);
            return false;
        }
    return true;
}

void CParamEditorDlg::accept() {
    if (!TakeAndCheckPages()) return;
    for (CParamPage* page : m_groupPages) page->SaveToDocument(m_env.doc);
    if (m_env.refreshList) m_env.refreshList();
    CloseKeyboard();
    QDialog::accept();
}

void CParamEditorDlg::reject() {
    CloseKeyboard();
    QDialog::reject();
}

void CParamEditorDlg::OnTransmitGroup() {
    TransmitContext context{m_env.session, m_env.doc, m_env.link ? m_env.link() : nullptr,
                            RunModalLinkWork, m_fDriveVersion};
    TransmitGroup(m_nGroupIndex, context, [this]() -> std::optional<GroupValues> {
        if (!TakeAndCheckPages()) return std::nullopt;
        GroupValues values;
        for (CParamPage* page : m_groupPages) {
            CParamPageLogic& logic = page->Logic();
            for (int s = 0; s < logic.Page().RowCount(); ++s) {
                const QString text = logic.RowText(s);
                logic.m_writtenValue[static_cast<std::size_t>(s)] = text;
                values.emplace_back(logic.Page().RowAt(s), text);
            }
        }
        return values;
    });
    m_fDriveVersion = context.driveVersion;
}

void CParamEditorDlg::OnSmallKeyboard() {
    if (m_keyboard) return;
    m_keyboard = new CSmallKeyboardDlg(this);
    m_keyboard->setAttribute(Qt::WA_DeleteOnClose);
    m_keyboard->move(mapToGlobal(QPoint(width(), 0)));
    m_keyboard->show();
    if (m_lastEdit) {
        m_lastEdit->setFocus(Qt::OtherFocusReason);
        m_keyboard->SetTarget(m_lastEdit);
    }
}

void CParamEditorDlg::CloseKeyboard() {
    if (m_keyboard) m_keyboard->close();
}

void CParamEditorDlg::OnFocusChanged(QWidget* now) {
    auto* edit = qobject_cast<QLineEdit*>(now);
    if (!edit || !m_pageArea->isAncestorOf(edit)) return;
    m_lastEdit = edit;
    if (m_keyboard) m_keyboard->SetTarget(edit);
}

}  // namespace quillon
