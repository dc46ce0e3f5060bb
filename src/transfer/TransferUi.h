#pragma once
// The parameter transfer on the desktop: the main frame's commands Read, Write, Password Set
// and Clear, Auto Refresh and Change Communication Parameters, with the windows they need (the
// progress window, timer 2 of auto refresh, the dialogs). One object lives as a child of the
// main frame; InstallTransferCommands creates it, installs the command handlers and the close
// hook that stops auto refresh. The program registers it with RegisterTransferCommands.

#include "transfer/AutoRefresh.h"
#include "transfer/TransferCommands.h"
#include "transfer/TransferWindows.h"

#include <QObject>

class QTimer;

namespace quillon {

class CFrameFeatures;
class CMainFrame;
class CProgressDlg;

class CTransferUi final : public QObject, public ITransferWindows {
    Q_OBJECT
public:
    explicit CTransferUi(CMainFrame& frame);
    ~CTransferUi() override;

    CTransferCommands& Commands() { return m_commands; }
    CAutoRefresh& AutoRefresh() { return m_autoRefresh; }
    CProgressDlg* ProgressWindow() const { return m_progress; }
    QTimer* RefreshTimer() const { return m_timer; }

    // The stop that Disconnect and closing the main window use.
    void StopAutoRefresh() { m_autoRefresh.Stop(); }

    // ITransferWindows
    IProgress& Progress() override;
    void SetStatusPane(int pane, const QString& text) override;
    void RefreshList() override;
    CM330Doc* Document() override;
    CM330Doc* NewDocumentForDrive() override;
    bool SaveProject() override;
    CDriveSerial* Link() override;
    void LinkWork(const std::function<void()>& job) override;
    void DeleteLink() override;
    void ShowUnwrittenParams(const std::vector<MotorParam>& params) override;
    void SetRefreshTimer(bool running) override;
    std::optional<QString> AskPasswordSet() override;
    std::optional<ChangePasswordEntry> AskChangePassword() override;
    std::optional<QString> AskPasswordInput() override;

private:
    void Install();
    void OnChangeComm();
    void OnClose();

    CMainFrame& m_frame;
    CProgressDlg* m_progress;
    QTimer* m_timer;
    CTransferCommands m_commands;
    CAutoRefresh m_autoRefresh;
};

// Adds the transfer commands to every main frame built after this.
void RegisterTransferCommands(CFrameFeatures& features);
// Creates the transfer commands of `frame` (owned by it) and returns them.
CTransferUi* InstallTransferCommands(CMainFrame& frame);
// The transfer commands installed on `frame`; nullptr before InstallTransferCommands.
CTransferUi* TransferUiOf(const CMainFrame& frame);

}  // namespace quillon
