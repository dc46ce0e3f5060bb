#pragma once
// The project commands of the File menu (New, Open, Open recent, Save, Save As, Close) and the
// save question before a project goes away, in their fixed order of steps. One project is open at
// a time: New and Open build the next document completely before the previous one is dropped, so
// a failure on the way leaves the open project, and the session, as they were.
//
// The logic owns the document and needs no widget: the windows it acts on are reached through
// IProjectWindows, every question through the prompt seam.

#include "base/SessionState.h"
#include "params/M330Doc.h"
#include "shell/RecentFileList.h"

#include <QString>
#include <memory>

namespace quillon {

// What the commands need of the main frame.
class IProjectWindows {
public:
    virtual ~IProjectWindows() = default;
    // "Model Select"; on OK it has put the chosen model name and frequency class in the session.
    virtual bool RunModelSelect() = 0;
    // A maximised project window showing `doc`; a previous one is destroyed once it stands.
    virtual void ShowProjectWindow(CM330Doc& doc) = 0;
    virtual bool HasProjectWindow() const = 0;
    // Destroys the project window; its view lets go of the document at once.
    virtual void DestroyProjectWindow() = 0;
    virtual void SetProjectWindowTitle(const QString& title) = 0;
    virtual void RebuildTree() = 0;
    virtual void ClearTree() = 0;
    virtual void SetStatusPane(int pane, const QString& text) = 0;
    // Stops a running auto refresh before the program closes.
    virtual void StopAutoRefresh() = 0;
    virtual void RecentListChanged() = 0;
};

inline constexpr const char* kNewProjectTitle = "New Project";

// "Project File(*.qpj)": the filter of the open and save dialogs.
QString ProjectFileFilter();

class CProjectCommands {
public:
    CProjectCommands(SessionState& session, CRecentFileList& recent, IProjectWindows& windows);
    ~CProjectCommands();
    CProjectCommands(const CProjectCommands&) = delete;
    CProjectCommands& operator=(const CProjectCommands&) = delete;

    CM330Doc* Document() const { return m_doc.get(); }

    void OnFileNew();
    void OnFileOpen();
    // The recent-list entry `index`: opened like File Open, added to the top of the list on
    // success, removed from it when it can't be opened.
    void OnOpenRecentFile(int index);
    bool OpenRecentFile(const QString& path);
    // A project named outside the open dialog: dropped on the window or given on the command line.
    bool OpenProjectFile(const QString& path);
    // A new project for the model the session holds, with no dialog: a link taken over at
    // start-up has identified the drive.
    void NewDocumentForLinkedDrive();
    void OnFileSave();
    void OnFileSaveAs();
    void OnFileClose();

    // Before a project goes away: true when it may. A modified project asks Yes / No / Cancel;
    // Yes saves (asking for a path if it has none; Cancel there keeps the project) and goes on
    // whether or not the save worked.
    bool SaveModified();
    // The project window's close box: the tree is cleared, then the save question. True when the
    // window may close; the document is then gone.
    bool OnProjectWindowClose();
    // The main window is closing: a running auto refresh is stopped, then the save question.
    bool CanCloseFrame();

    // The part of the project path behind its last separator.
    QString ProjectFileName() const;

private:
    enum class SaveResult { Saved, Failed, Cancelled };
    SaveResult SaveDocument(bool askForPath);
    bool RefusedUnderAutoRefresh() const;
    bool OpenPath(const QString& path, bool fromRecentList);
    // The document's open: refused under auto refresh, then a new document read from `path`.
    std::unique_ptr<CM330Doc> OnOpenDocument(const QString& path);
    void TakeDocument(std::unique_ptr<CM330Doc> doc, const QString& title);
    // A new document for the session's model, without a path and with no group shown.
    void TakeNewDocument();
    // Panes 0 and 3 from the project that is open (or none): the one place that sets them.
    void ShowProjectPanes();
    // Destroys the project window and the document; the session forgets its path and model.
    void DropDocument();

    SessionState& m_session;
    CRecentFileList& m_recent;
    IProjectWindows& m_windows;
    std::unique_ptr<CM330Doc> m_doc;
};

}  // namespace quillon
