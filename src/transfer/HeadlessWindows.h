#pragma once
// The transfer's windows where there is no screen: no list, no status bar, no password dialogs,
// a progress window nobody sees, and the project of the command kept here. The command-line tool
// adds its progress bar and its list of motor parameters; the fleet backup takes it as it is.

#include "transfer/TransferWindows.h"

#include <memory>

namespace quillon {

struct SessionState;

class CHeadlessWindows : public ITransferWindows {
public:
    CHeadlessWindows(SessionState& session, CDriveSerial& link) : m_session(session), m_link(link) {}

    // A project of this command from now on.
    void SetDocument(std::unique_ptr<CM330Doc> doc) { m_doc = std::move(doc); }

    IProgress& Progress() override { return m_quiet; }
    void SetStatusPane(int, const QString&) override {}
    void RefreshList() override {}
    CM330Doc* Document() override { return m_doc.get(); }
    CM330Doc* NewDocumentForDrive() override;
    bool SaveProject() override { return false; }
    CDriveSerial* Link() override { return &m_link; }
    void DeleteLink() override;
    void ShowUnwrittenParams(const std::vector<MotorParam>&) override {}
    void SetRefreshTimer(bool) override {}
    std::optional<QString> AskPasswordSet() override { return std::nullopt; }
    std::optional<ChangePasswordEntry> AskChangePassword() override { return std::nullopt; }
    std::optional<QString> AskPasswordInput() override { return std::nullopt; }

private:
    class QuietProgress final : public IProgress {
    public:
        bool IsVisible() const override { return m_bVisible; }
        void Show(const QString&) override { m_bVisible = true; }
        void Hide() override { m_bVisible = false; }
        void SetRange(int, int) override {}
        void SetPos(int) override {}
        void SetLabel(const QString&) override {}

    private:
        bool m_bVisible = false;
    };

    SessionState& m_session;
    CDriveSerial& m_link;
    std::unique_ptr<CM330Doc> m_doc;
    QuietProgress m_quiet;
};

}  // namespace quillon
