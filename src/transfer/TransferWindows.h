#pragma once
// What the parameter transfer needs of the windows around it: the progress window, the list,
// the status bar, the project, the link, and the dialogs that ask for passwords or show the
// motor parameters left out. The desktop answers with its windows (TransferUi.h), the
// command-line tool with stderr, tests with a recording fake. Messages and Yes/No questions go
// through the prompt seam as everywhere else.

#include "params/M330Doc.h"

#include <QString>
#include <functional>
#include <optional>
#include <vector>

namespace quillon {

class CDriveSerial;

// The progress window of Read and Write: a label over a bar. It repaints when told to.
class IProgress {
public:
    virtual ~IProgress() = default;
    virtual bool IsVisible() const = 0;
    // Placed a third of the main window's width from its left side and a fifth of its height
    // above its bottom, with `title`, and shown.
    virtual void Show(const QString& title) = 0;
    virtual void Hide() = 0;
    virtual void SetRange(int lower, int upper) = 0;
    virtual void SetPos(int pos) = 0;
    // Sets the label and repaints the window.
    virtual void SetLabel(const QString& label) = 0;
};

struct ChangePasswordEntry {
    QString oldPassword;
    QString newPassword;
};

class ITransferWindows {
public:
    virtual ~ITransferWindows() = default;

    virtual IProgress& Progress() = 0;
    virtual void SetStatusPane(int pane, const QString& text) = 0;
    // Clears the changed marks and fills the list again; nothing without a project window.
    virtual void RefreshList() = 0;

    // The open project; nullptr without one.
    virtual CM330Doc* Document() = 0;
    // Read without a project: a new project for the model the session now holds.
    virtual CM330Doc* NewDocumentForDrive() = 0;
    // Save before a Read overwrites a modified project; false when the person refused the file
    // dialog or the project could not be saved.
    virtual bool SaveProject() = 0;

    // The link; nullptr when there is none.
    virtual CDriveSerial* Link() = 0;
    // Runs a piece of link work (transactions only: no document, no widget) and returns when it
    // has ended. The desktop runs it off the interface thread, with the windows painting and
    // every other command shut until it ends (LinkWork.h); elsewhere it runs at once.
    virtual void LinkWork(const std::function<void()>& job) { job(); }
    // Closes and deletes the link (a change of communication settings that can't reopen it).
    virtual void DeleteLink() = 0;

    // CUnwrittenParamDlg over the motor parameters a Write left out.
    virtual void ShowUnwrittenParams(const std::vector<MotorParam>& params) = 0;

    // Timer 2 of the view, which calls CAutoRefresh::Tick every kAutoRefreshPeriodMs.
    virtual void SetRefreshTimer(bool running) = 0;

    // The password dialogs; nullopt on Cancel. Their field checks have passed on OK.
    virtual std::optional<QString> AskPasswordSet() = 0;
    virtual std::optional<ChangePasswordEntry> AskChangePassword() = 0;
    virtual std::optional<QString> AskPasswordInput() = 0;
};

// Runs `step` as link work of `windows` and returns its result.
inline bool OnLink(ITransferWindows& windows, const std::function<bool()>& step) {
    bool ok = false;
    windows.LinkWork([&] { ok = step(); });
    return ok;
}

}  // namespace quillon
