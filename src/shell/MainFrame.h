#pragma once
// The main window of a session. It owns the session state (model, frequency class, link and
// stations, graph curves) and outlives the project documents, which New and Open replace whole.
// It holds the menus, the tool bar, the status bar with its five panes and the docking bar with
// the project tree, and routes the commands: each command id goes to one handler, and its enable
// and check state comes from the command table.

#include "base/SessionState.h"
#include "link/LinkSession.h"
#include "params/M330Doc.h"
#include "shell/ChildFrame.h"
#include "shell/MenuLayout.h"
#include "shell/ProjectCommands.h"

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <map>
#include <span>
#include <vector>

class QDockWidget;
class QLabel;
class QMdiArea;
class QMenu;
class QTabWidget;
class QTimer;
class QToolBar;

namespace quillon {

class CCJTreeCtrl;
class CHelpDlg;
class CM330View;
class CFrameFeatures;
class CRecentFileList;
struct CommandState;

class CMainFrame : public QMainWindow, private IProjectWindows, private ILinkWindows {
    Q_OBJECT
public:
    // Builds the frame and installs `features` on it.
    CMainFrame(CRecentFileList& recent, const CFrameFeatures& features, QWidget* parent = nullptr);
    ~CMainFrame() override;

    SessionState& Session() { return m_session; }
    CProjectCommands& Commands() { return m_commands; }
    CLinkSession& LinkSession() { return m_link; }
    // Timer 1: the supervision of the linked stations.
    QTimer* LinkWatchTimer() const { return m_linkWatch; }
    CM330Doc* Document() const { return m_commands.Document(); }
    // The view of the project window, nullptr without a project.
    CM330View* View() const;
    CChildFrame* ChildFrame() const { return m_child; }
    CCJTreeCtrl* Tree() const { return m_tree; }
    QDockWidget* DockBar() const { return m_dock; }
    QToolBar* ToolBar() const { return m_toolbar; }

    // Status panes 0..3 show their label and the text; pane 4 the text alone; others are ignored.
    void SetStatusPane(int pane, const QString& text) override;
    QString StatusPaneText(int pane) const;
    QLabel* StatusPane(int pane) const;
    // The part of the project path behind its last separator.
    QString ProjectFileName() const { return m_commands.ProjectFileName(); }

    void RebuildTree() override;
    void ClearTree() override;
    // A left click on the project tree: the list switches to the clicked item's groups.
    void OnTreeClick();

    // Runs a command as if it had been chosen from a menu; a disabled command does nothing.
    void OnCommand(int id);
    // Installs the handler of a command that a later subsystem provides.
    void SetCommandHandler(int id, std::function<void()> handler);
    // Adds work to end before the project, the link or the frame goes (auto refresh); the hooks
    // run in the order they were added.
    void AddCloseHook(std::function<void()> hook);
    // Puts every menu entry and tool-bar button into the state the command table gives, and
    // shows the menu bar that fits: 128 without a project, 129 with one.
    void UpdateCommandUI();
    CommandState CurrentCommandState() const;
    QAction* Action(int id) const;
    int CurrentMenuId() const { return m_menuId; }
    // The settings file of the session (the recent-project list); others keep theirs beside it.
    const QString& SettingsIniPath() const;

    QString m_strAppDir;  // program directory, with its closing separator

signals:
    // A double click in the project window's list asks for the editor on a group and row.
    void RowEditRequested(int group, int rowIndex);

protected:
    // A language switch: menus, tool tips, tree and list are worded anew.
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // IProjectWindows
    bool RunModelSelect() override;
    void ShowProjectWindow(CM330Doc& doc) override;
    bool HasProjectWindow() const override { return m_child != nullptr; }
    void DestroyProjectWindow() override;
    void SetProjectWindowTitle(const QString& title) override;
    void StopAutoRefresh() override;
    void RecentListChanged() override;
    // ILinkWindows
    void StartLinkWatch(int periodMs) override;
    void StopLinkWatch() override;
    void LinkWork(const std::function<void()>& job) override;

    void CreateActions();
    void CreateMenus();
    void FillMenu(QMenu* menu, std::span<const MenuEntry> entries);
    QAction* TwinAction(QAction* action, const char* text, QMenu* menu);
    void CreateToolBar();
    void CreateStatusBar();
    void CreateDockBar();
    void InstallBuiltInHandlers();
    void LayoutStatusPanes();
    void RefreshRecentActions();
    void OnHelp();
    void Retranslate();
    static void DisposeWindow(CChildFrame* child);

    SessionState m_session;
    // Before the commands and the link: closing the link runs them while the frame goes.
    std::vector<std::function<void()>> m_closeHooks;
    CRecentFileList& m_recent;
    CProjectCommands m_commands;
    CLinkSession m_link;
    QMdiArea* m_mdi;
    QPointer<CChildFrame> m_child;
    QPointer<CHelpDlg> m_help;  // the manual's window, made on the first Help
    QLabel* m_panes[5] = {};
    QDockWidget* m_dock = nullptr;
    QTabWidget* m_tabs = nullptr;
    CCJTreeCtrl* m_tree = nullptr;
    QToolBar* m_toolbar = nullptr;
    QTimer* m_uiTimer = nullptr;
    QTimer* m_linkWatch = nullptr;
    std::map<int, QAction*> m_actions;
    std::map<int, std::function<void()>> m_handlers;
    std::map<int, std::vector<QMenu*>> m_menuBars;  // menu id -> its top-level popups
    int m_menuId = 0;
};

}  // namespace quillon
