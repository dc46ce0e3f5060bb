#include "transfer/TransferUi.h"

#include "base/ErrorReport.h"
#include "base/Prompt.h"
#include "base/TextTable.h"
#include "link/LinkSession.h"
#include "link/LinkWork.h"
#include "shell/CommandIds.h"
#include "shell/FrameFeatures.h"
#include "shell/M330View.h"
#include "shell/MainFrame.h"
#include "transfer/TransferDialogs.h"
#include "ui/ModalLinkWork.h"

#include <QPointer>
#include <QTimer>

namespace quillon {

CTransferUi::CTransferUi(CMainFrame& frame)
    : QObject(&frame),
      m_frame(frame),
      m_progress(new CProgressDlg(&frame)),
      m_timer(new QTimer(this)),
      m_commands(frame.Session(), *this),
      m_autoRefresh(frame.Session(), *this) {
    setObjectName(QStringLiteral("TransferUi"));
    m_timer->setObjectName(QStringLiteral("AutoRefreshTimer"));
    m_timer->setInterval(kAutoRefreshPeriodMs);
    // A Read or Write under way has the link and the project: the cycle waits for the next tick.
    connect(m_timer, &QTimer::timeout, this, Guarded([this] {
                if (!LinkWorkRunning()) m_autoRefresh.Tick();
            }));
    Install();
}

CTransferUi::~CTransferUi() { m_timer->stop(); }

void CTransferUi::Install() {
    m_frame.SetCommandHandler(CmdId::Read, [this] { m_commands.OnRead(); });
    m_frame.SetCommandHandler(CmdId::Write, [this] { m_commands.OnWrite(); });
    m_frame.SetCommandHandler(CmdId::PasswordSet, [this] { m_commands.OnPasswordSet(); });
    m_frame.SetCommandHandler(CmdId::PasswordClear, [this] { m_commands.OnPasswordClear(); });
    m_frame.SetCommandHandler(CmdId::AutoRefresh, [this] { m_autoRefresh.OnToggle(); });
    m_frame.SetCommandHandler(CmdId::ChangeComm, [this] { OnChangeComm(); });
    m_frame.SetCommandHandler(CmdId::Close, [this] { OnClose(); });
    // Once this object is gone, its hook does nothing.
    m_frame.AddCloseHook([self = QPointer<CTransferUi>(this)] {
        if (self) self->StopAutoRefresh();
    });
}

void CTransferUi::OnChangeComm() {
    CCommParamDlg dlg(m_frame.Session(), *this, &m_frame);
    dlg.exec();
}

void CTransferUi::OnClose() {
    // The project can't go while auto refresh reads it.
    if (m_frame.Session().m_bAutoRefresh) {
        Prompt().Message(LoadText(TextId::AutoRefreshRunning));
        return;
    }
    m_frame.Commands().OnFileClose();
}

IProgress& CTransferUi::Progress() { return *m_progress; }

void CTransferUi::SetStatusPane(int pane, const QString& text) {
    m_frame.SetStatusPane(pane, text);
}

void CTransferUi::RefreshList() {
    if (CM330View* view = m_frame.View()) view->OnRefreshList();
}

CM330Doc* CTransferUi::Document() { return m_frame.Document(); }

CM330Doc* CTransferUi::NewDocumentForDrive() {
    m_frame.Commands().NewDocumentForLinkedDrive();
    return m_frame.Document();
}

bool CTransferUi::SaveProject() {
    m_frame.Commands().OnFileSave();
    // A refused dialog leaves no path, a failed save takes it away.
    const CM330Doc* doc = m_frame.Document();
    return doc && !doc->IsModified() && !m_frame.Session().m_strProjectPath.isEmpty();
}

CDriveSerial* CTransferUi::Link() { return m_frame.LinkSession().Link(); }

void CTransferUi::LinkWork(const std::function<void()>& job) { RunModalLinkWork(job); }

void CTransferUi::DeleteLink() {
    // Nothing may use the link while it goes.
    m_autoRefresh.Stop();
    m_frame.LinkSession().DeleteLink();
}

void CTransferUi::ShowUnwrittenParams(const std::vector<MotorParam>& params) {
    CUnwrittenParamDlg dlg(params, &m_frame);
    dlg.exec();
}

void CTransferUi::SetRefreshTimer(bool running) {
    if (running)
        m_timer->start();
    else
        m_timer->stop();
}

std::optional<QString> CTransferUi::AskPasswordSet() {
    CPasswordSetDlg dlg(&m_frame);
    if (dlg.exec() != QDialog::Accepted) return std::nullopt;
    return dlg.Password();
}

std::optional<ChangePasswordEntry> CTransferUi::AskChangePassword() {
    CChangePasswordDlg dlg(&m_frame);
    if (dlg.exec() != QDialog::Accepted) return std::nullopt;
    return dlg.Entry();
}

std::optional<QString> CTransferUi::AskPasswordInput() {
    CPasswordInputDlg dlg(&m_frame);
    if (dlg.exec() != QDialog::Accepted) return std::nullopt;
    return dlg.Password();
}

void RegisterTransferCommands(CFrameFeatures& features) {
    features.Add([](CMainFrame& frame) { InstallTransferCommands(frame); });
}

CTransferUi* InstallTransferCommands(CMainFrame& frame) { return new CTransferUi(frame); }

CTransferUi* TransferUiOf(const CMainFrame& frame) {
    return frame.findChild<CTransferUi*>(QString(), Qt::FindDirectChildrenOnly);
}

}  // namespace quillon
