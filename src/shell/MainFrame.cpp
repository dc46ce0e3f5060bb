#include "shell/MainFrame.h"

#include "base/ErrorReport.h"
#include "base/Language.h"
#include "base/Prompt.h"
#include "base/StatusPanes.h"
#include "base/TextTable.h"
#include "link/ConnectDlg.h"
#include "params/ModelSelectDlg.h"
#include "params/ProjectFile.h"
#include "shell/AboutDlg.h"
#include "shell/ChildFrame.h"
#include "shell/CommandIds.h"
#include "shell/CommandTable.h"
#include "shell/FrameFeatures.h"
#include "shell/HelpDlg.h"
#include "shell/LanguageSwitch.h"
#include "shell/M330View.h"
#include "shell/MenuLayout.h"
#include "shell/ProjectTree.h"
#include "shell/ProjectTreeRules.h"
#include "shell/RecentFileList.h"
#include "shell/ToolbarIcons.h"
#include "ui/ModalLinkWork.h"

#include <QAction>
#include <QCloseEvent>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <QUrl>

namespace quillon {
namespace {

constexpr int kDockWidth = 120;
constexpr int kDockHeight = 260;
constexpr int kCommandUiPeriodMs = 200;

bool IsProjectFile(const QString& path) {
    return path.endsWith(QStringLiteral(".") + QLatin1String(kProjectExtension),
                         Qt::CaseInsensitive);
}

// The first local project file among dropped URLs; empty if there is none.
QString DroppedProject(const QMimeData* mime) {
    if (!mime || !mime->hasUrls()) return {};
    for (const QUrl& url : mime->urls())
        if (url.isLocalFile() && IsProjectFile(url.toLocalFile())) return url.toLocalFile();
    return {};
}

}  // namespace

CMainFrame::CMainFrame(CRecentFileList& recent, const CFrameFeatures& features, QWidget* parent)
    : QMainWindow(parent),
      m_recent(recent),
      m_commands(m_session, recent, *this),
      m_link(m_session, *this),
      m_mdi(new QMdiArea(this)) {
    setObjectName(QStringLiteral("MainFrame"));
    setWindowTitle(QStringLiteral("Quillon"));
    setCentralWidget(m_mdi);
    m_mdi->setViewMode(QMdiArea::SubWindowView);

    CreateActions();
    CreateToolBar();
    CreateStatusBar();
    CreateDockBar();
    CreateMenus();
    InstallBuiltInHandlers();
    features.InstallAll(*this);
    setAcceptDrops(true);

    m_uiTimer = new QTimer(this);
    connect(m_uiTimer, &QTimer::timeout, this, &CMainFrame::UpdateCommandUI);
    m_linkWatch = new QTimer(this);
    m_linkWatch->setObjectName(QStringLiteral("LinkWatch"));
    connect(m_linkWatch, &QTimer::timeout, this, Guarded([this] { m_link.OnLinkWatchTick(); }));
    m_uiTimer->start(kCommandUiPeriodMs);
    resize(1000, 700);
    UpdateCommandUI();
}

CMainFrame::~CMainFrame() {
    // The refresh worker uses the link, which goes with the frame.
    StopAutoRefresh();
    m_uiTimer->stop();
    m_linkWatch->stop();
    // A shown frame hides its dock as it goes: no command states asked of a half-gone frame.
    disconnect(m_dock, nullptr, this, nullptr);
    // The document goes with the commands before the child widgets: the view lets go of it first.
    if (m_child) DisposeWindow(m_child);
}

// ---- commands ------------------------------------------------------------------------------

void CMainFrame::CreateActions() {
    for (const CommandInfo& info : CommandTable()) {
        const int copies =
            info.id == CmdId::RecentFirst ? CmdId::RecentLast - CmdId::RecentFirst + 1 : 1;
        for (int i = 0; i < copies; ++i) {
            const int id = info.id + i;
            auto* action = new QAction(CommandText(info.id), this);
            action->setObjectName(QStringLiteral("cmd%1").arg(id));
            if (info.tip) action->setToolTip(CommandTip(info.id));
            if (info.shortcut)
                action->setShortcut(QKeySequence(QString::fromLatin1(info.shortcut)));
            action->setCheckable(info.check != CheckRule::None);
            action->setIcon(QIcon(ToolbarPixmap(id)));
            action->setIconVisibleInMenu(false);
            connect(action, &QAction::triggered, this, Guarded([this, id] { OnCommand(id); }));
            m_actions[id] = action;
            // Shortcuts work whichever menu bar stands.
            addAction(action);
        }
    }
}

QAction* CMainFrame::Action(int id) const {
    const auto it = m_actions.find(id);
    return it == m_actions.end() ? nullptr : it->second;
}

void CMainFrame::FillMenu(QMenu* menu, std::span<const MenuEntry> entries) {
    for (const MenuEntry& e : entries) {
        switch (e.kind) {
            case MenuEntry::Separator:
                menu->addSeparator();
                break;
            case MenuEntry::Command:
                menu->addAction(e.text ? TwinAction(Action(e.id), e.text, menu) : Action(e.id));
                break;
            case MenuEntry::RecentList:
                for (int id = CmdId::RecentFirst; id <= CmdId::RecentLast; ++id)
                    menu->addAction(Action(id));
                break;
            case MenuEntry::Popup:
                FillMenu(menu->addMenu(Translated("Menu", e.text)), e.popup);
                break;
        }
    }
}

QAction* CMainFrame::TwinAction(QAction* action, const char* text, QMenu* menu) {
    // The same command worded differently in one menu: it triggers the command's own action and
    // follows its state.
    auto* twin = new QAction(Translated("Menu", text), menu);
    twin->setShortcut(action->shortcut());
    twin->setShortcutContext(Qt::WidgetShortcut);  // the command's own action holds the key
    twin->setEnabled(action->isEnabled());
    connect(twin, &QAction::triggered, action, &QAction::trigger);
    connect(action, &QAction::changed, twin, [twin, action] { twin->setEnabled(action->isEnabled()); });
    return twin;
}

void CMainFrame::CreateMenus() {
    // Both menu bars are built once; the frame shows the one that fits.
    for (int menuId : {kMenuNoProject, kMenuProject}) {
        for (const MenuEntry& top : MenuBarLayout(menuId)) {
            auto* menu = new QMenu(Translated("Menu", top.text), this);
            FillMenu(menu, top.popup);
            connect(menu, &QMenu::aboutToShow, this, &CMainFrame::UpdateCommandUI);
            m_menuBars[menuId].push_back(menu);
        }
    }
}

const QString& CMainFrame::SettingsIniPath() const { return m_recent.IniPath(); }

void CMainFrame::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) Retranslate();
}

void CMainFrame::Retranslate() {
    for (const auto& [id, action] : m_actions) {
        action->setText(CommandText(id));
        action->setToolTip(CommandTip(id));
    }
    // The menus are built anew from the layout; the old ones go once the event that may have
    // come from one of them is over.
    menuBar()->clear();
    for (auto& [menuId, menus] : m_menuBars)
        for (QMenu* menu : menus) menu->deleteLater();
    m_menuBars.clear();
    CreateMenus();
    m_menuId = 0;
    UpdateCommandUI();
    if (m_tree->topLevelItemCount() > 0) {
        const QTreeWidgetItem* current = m_tree->currentItem();
        const int selected = current ? CCJTreeCtrl::ItemData(current) : -1;
        RebuildTree();
        if (QTreeWidgetItem* item = m_tree->FindByData(selected)) m_tree->setCurrentItem(item);
    }
    if (CM330View* view = View()) view->OnRefreshList();
}

void CMainFrame::CreateToolBar() {
    m_toolbar = addToolBar(QStringLiteral("Toolbar"));
    m_toolbar->setObjectName(QStringLiteral("Toolbar128"));
    m_toolbar->setIconSize(kToolbarImageSize);
    m_toolbar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    for (int id : ToolbarLayout()) {
        if (id == 0)
            m_toolbar->addSeparator();
        else
            m_toolbar->addAction(Action(id));
    }
}

void CMainFrame::InstallBuiltInHandlers() {
    m_handlers[CmdId::New] = [this] { m_commands.OnFileNew(); };
    m_handlers[CmdId::Open] = [this] { m_commands.OnFileOpen(); };
    m_handlers[CmdId::Save] = [this] { m_commands.OnFileSave(); };
    m_handlers[CmdId::SaveAs] = [this] { m_commands.OnFileSaveAs(); };
    m_handlers[CmdId::Close] = [this] { m_commands.OnFileClose(); };
    for (int id = CmdId::RecentFirst; id <= CmdId::RecentLast; ++id)
        m_handlers[id] = [this, id] { m_commands.OnOpenRecentFile(id - CmdId::RecentFirst); };
    m_handlers[CmdId::Exit] = [this] { close(); };
    m_handlers[CmdId::ViewToolbar] = [this] { m_toolbar->setVisible(m_toolbar->isHidden()); };
    m_handlers[CmdId::ViewStatusBar] = [this] { statusBar()->setVisible(statusBar()->isHidden()); };
    m_handlers[CmdId::ProjectWindow] = [this] { m_dock->setVisible(m_dock->isHidden()); };
    for (const auto& [id, language] : {std::pair{CmdId::LanguageSystem, UiLanguage::System},
                                       std::pair{CmdId::LanguageEnglish, UiLanguage::English}})
        m_handlers[id] = [this, language] {
            ApplyLanguage(language);
            WriteLanguageSetting(LanguageIniPath(m_recent.IniPath()), language);
        };
    m_handlers[CmdId::Connect] = [this] {
        CConnectDlg dlg(m_link, this);
        dlg.exec();
    };
    m_handlers[CmdId::Help] = [this] { OnHelp(); };
    m_handlers[CmdId::About] = [this] {
        CAboutDlg dlg(this);
        dlg.exec();
    };
}

void CMainFrame::SetCommandHandler(int id, std::function<void()> handler) {
    m_handlers[id] = std::move(handler);
}

void CMainFrame::AddCloseHook(std::function<void()> hook) {
    m_closeHooks.push_back(std::move(hook));
}

void CMainFrame::OnCommand(int id) {
    if (!IsCommandEnabled(id, CurrentCommandState())) return;
    const auto it = m_handlers.find(id);
    // Copied: a handler may replace the handlers (or the project window) while it runs.
    if (it != m_handlers.end() && it->second) {
        const std::function<void()> handler = it->second;
        handler();
    }
    UpdateCommandUI();
}

CommandState CMainFrame::CurrentCommandState() const {
    CommandState s;
    s.hasProject = Document() != nullptr;
    s.online = m_session.m_bOnline;
    s.completeParams = m_session.m_bCompleteParams;
    s.autoRefresh = m_session.m_bAutoRefresh;
    s.reading = m_session.m_bReading;
    s.writing = m_session.m_bWriting;
    s.recentCount = m_recent.Size();
    s.dockVisible = m_dock && !m_dock->isHidden();
    s.toolbarVisible = m_toolbar && !m_toolbar->isHidden();
    s.statusBarVisible = !statusBar()->isHidden();
    return s;
}

void CMainFrame::UpdateCommandUI() {
    const CommandState state = CurrentCommandState();
    for (const auto& [id, action] : m_actions) {
        action->setEnabled(IsCommandEnabled(id, state));
        if (action->isCheckable()) action->setChecked(IsCommandChecked(id, state));
    }
    RefreshRecentActions();

    const int wanted = HasProjectWindow() ? kMenuProject : kMenuNoProject;
    if (wanted != m_menuId) {
        m_menuId = wanted;
        menuBar()->clear();
        for (QMenu* menu : m_menuBars[wanted]) menuBar()->addMenu(menu);
    }
}

void CMainFrame::RefreshRecentActions() {
    const int count = m_recent.Size();
    for (int i = 0; i <= CmdId::RecentLast - CmdId::RecentFirst; ++i) {
        QAction* action = Action(CmdId::RecentFirst + i);
        if (i < count) {
            action->setText(QStringLiteral("&%1 %2").arg(i + 1).arg(m_recent.DisplayName(i)));
            action->setVisible(true);
        } else {
            // An empty list shows one grey placeholder.
            action->setText(CommandText(CmdId::RecentFirst));
            action->setVisible(i == 0);
        }
    }
}

void CMainFrame::RecentListChanged() { RefreshRecentActions(); }

// ---- status bar ----------------------------------------------------------------------------

void CMainFrame::CreateStatusBar() {
    QStatusBar* bar = statusBar();
    bar->setSizeGripEnabled(false);
    for (int i = 0; i < kStatusPanes; ++i) {
        m_panes[i] = new QLabel(StatusPaneLabel(i), bar);
        m_panes[i]->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        m_panes[i]->setMinimumWidth(0);
        bar->addPermanentWidget(m_panes[i], i == 0 ? 1 : 0);
    }
    LayoutStatusPanes();
}

void CMainFrame::LayoutStatusPanes() {
    const auto widths = StatusPaneWidths(width());
    for (int i = 1; i < kStatusPanes; ++i) m_panes[i]->setFixedWidth(widths[i]);
}

void CMainFrame::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    LayoutStatusPanes();
}

void CMainFrame::SetStatusPane(int pane, const QString& text) {
    if (pane < 0 || pane >= kStatusPanes) return;
    m_panes[pane]->setText(quillon::StatusPaneText(pane, text));
    m_panes[pane]->repaint();
}

QString CMainFrame::StatusPaneText(int pane) const {
    return pane >= 0 && pane < kStatusPanes ? m_panes[pane]->text() : QString();
}

QLabel* CMainFrame::StatusPane(int pane) const {
    return pane >= 0 && pane < kStatusPanes ? m_panes[pane] : nullptr;
}

// ---- docking bar and project tree ----------------------------------------------------------

void CMainFrame::CreateDockBar() {
    m_dock = new QDockWidget(QStringLiteral("Dock Windows"), this);
    m_dock->setObjectName(QStringLiteral("DockWindows"));
    m_dock->setAllowedAreas(Qt::AllDockWidgetAreas);
    m_tabs = new QTabWidget(m_dock);
    m_tabs->setTabPosition(QTabWidget::South);
    m_tree = new CCJTreeCtrl(m_tabs);
    m_tabs->addTab(m_tree, LoadText(TextId::Project));
    m_dock->setWidget(m_tabs);
    addDockWidget(Qt::LeftDockWidgetArea, m_dock);
    m_tabs->resize(kDockWidth, kDockHeight);
    resizeDocks({m_dock}, {kDockWidth}, Qt::Horizontal);
    connect(m_tree, &CCJTreeCtrl::TreeClicked, this, Guarded([this] { OnTreeClick(); }));
    connect(m_dock, &QDockWidget::visibilityChanged, this, &CMainFrame::UpdateCommandUI);
}

void CMainFrame::RebuildTree() { m_tree->Rebuild(m_session.m_bCompleteParams); }

void CMainFrame::ClearTree() { m_tree->ClearTree(); }

void CMainFrame::OnTreeClick() {
    CM330View* view = View();
    if (!view || !view->Document()) return;
    const QList<QTreeWidgetItem*> selected = m_tree->selectedItems();
    if (selected.isEmpty()) return;
    const std::optional<int> group =
        TreeClickGroup(CCJTreeCtrl::ItemData(selected.front()), m_session.m_nCurGroup);
    if (!group) return;
    m_session.m_nCurGroup = *group;
    view->FillList();
    view->FocusFirstLine();
}

// ---- the project window --------------------------------------------------------------------

CM330View* CMainFrame::View() const { return m_child ? m_child->View() : nullptr; }

bool CMainFrame::RunModelSelect() {
    CModelSelectDlg dlg(m_session, m_strAppDir, this);
    return dlg.exec() == QDialog::Accepted;
}

void CMainFrame::ShowProjectWindow(CM330Doc& doc) {
    auto* view = new CM330View(doc, m_session);
    connect(view, &CM330View::RowActivated, this, &CMainFrame::RowEditRequested);
    auto* child = new CChildFrame(view, [this] {
        bool mayClose = false;
        GuardedCall([&] { mayClose = m_commands.OnProjectWindowClose(); });
        return mayClose;
    });
    m_mdi->addSubWindow(child);
    child->showMaximized();
    CChildFrame* previous = m_child;
    m_child = child;
    if (previous) DisposeWindow(previous);
    UpdateCommandUI();
}

void CMainFrame::DisposeWindow(CChildFrame* child) {
    // The document may go before the widget: the view lets go of it now, the widget goes later
    // (this can run inside the window's own close).
    if (child->View()) child->View()->Detach();
    child->hide();
    child->deleteLater();
}

void CMainFrame::DestroyProjectWindow() {
    if (!m_child) return;
    CChildFrame* child = m_child;
    m_child = nullptr;
    DisposeWindow(child);
    setWindowTitle(QStringLiteral("Quillon"));
    UpdateCommandUI();
}

void CMainFrame::SetProjectWindowTitle(const QString& title) {
    if (!m_child) return;
    m_child->setWindowTitle(title);
    setWindowTitle(QStringLiteral("Quillon - ") + title);
}

void CMainFrame::StopAutoRefresh() {
    // Waits for a running cycle, then turns auto refresh off.
    for (const std::function<void()>& hook : m_closeHooks) hook();
    m_session.m_bAutoRefresh = 0;
}

void CMainFrame::StartLinkWatch(int periodMs) { m_linkWatch->start(periodMs); }

void CMainFrame::StopLinkWatch() { m_linkWatch->stop(); }

void CMainFrame::LinkWork(const std::function<void()>& job) { RunModalLinkWork(job); }

// ---- help, closing, dropped files ----------------------------------------------------------

void CMainFrame::OnHelp() {
    // The manual shipped with the program; the old message stays for a copy without it.
    const QString path = ManualPath(m_strAppDir);
    if (!QFileInfo::exists(path)) {
        Prompt().Message(LoadText(TextId::CantFindHelp));
        return;
    }
    if (!m_help) m_help = new CHelpDlg(path, this);
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    bool mayClose = false;
    GuardedCall([&] { mayClose = m_commands.CanCloseFrame(); });
    if (!mayClose) {
        event->ignore();
        return;
    }
    QMainWindow::closeEvent(event);
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event) {
    if (!DroppedProject(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent* event) {
    const QString path = DroppedProject(event->mimeData());
    if (path.isEmpty()) return;
    event->acceptProposedAction();
    activateWindow();
    GuardedCall([&] { m_commands.OpenProjectFile(path); });
    UpdateCommandUI();
}

}  // namespace quillon
