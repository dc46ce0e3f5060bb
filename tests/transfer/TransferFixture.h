#pragma once
// The parameter transfer against the in-process simulated drive: a real CDriveSerial in front
// of the bus, a project of the tests' data files, the scripted prompt, and a recording stand-in
// for the windows. A test can have a request answered by the line instead of the bus (an
// exception reply, a cut line) to put faults exactly where it wants them. What reached the bus
// is in the line's record (Sent()).

#include "InterceptChannel.h"
#include "LinkTestSupport.h"
#include "base/SessionState.h"
#include "link/ChannelFactory.h"
#include "link/DriveSerial.h"
#include "params/M330Doc.h"
#include "sim/SimChannel.h"
#include "support/ScriptedPrompt.h"
#include "transfer/TransferWindows.h"

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <set>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace quillon::test {

class FakeProgress final : public IProgress {
public:
    bool IsVisible() const override { return visible; }
    void Show(const QString& t) override {
        visible = true;
        title = t;
        ++shows;
    }
    void Hide() override { visible = false; }
    void SetRange(int lower, int upper) override { range = {lower, upper}; }
    void SetPos(int p) override { positions.push_back(p); }
    void SetLabel(const QString& label) override { labels << label; }

    bool visible = false;
    QString title;
    int shows = 0;
    std::pair<int, int> range{-1, -1};
    std::vector<int> positions;
    QStringList labels;
};

class FakeWindows final : public ITransferWindows {
public:
    IProgress& Progress() override { return progress; }
    void SetStatusPane(int pane, const QString& text) override { panes[pane] = text; }
    void RefreshList() override { ++listRefreshes; }
    CM330Doc* Document() override { return doc; }
    CM330Doc* NewDocumentForDrive() override { return newDocument ? newDocument() : nullptr; }
    bool SaveProject() override {
        ++saves;
        return saveResult;
    }
    CDriveSerial* Link() override { return link; }
    void DeleteLink() override {
        ++linkDeletes;
        link = nullptr;
    }
    void ShowUnwrittenParams(const std::vector<MotorParam>& params) override;
    void SetRefreshTimer(bool running) override { timerRunning = running; }
    std::optional<QString> AskPasswordSet() override { return Next(passwordSet); }
    std::optional<ChangePasswordEntry> AskChangePassword() override { return Next(changePassword); }
    std::optional<QString> AskPasswordInput() override { return Next(passwordInput); }

    FakeProgress progress;
    std::map<int, QString> panes;
    int listRefreshes = 0;
    CM330Doc* doc = nullptr;
    std::function<CM330Doc*()> newDocument;
    bool saveResult = true;
    int saves = 0;
    CDriveSerial* link = nullptr;
    int linkDeletes = 0;
    std::vector<QStringList> unwrittenShown;  // the codes of each showing
    int messagesBeforeUnwritten = -1;         // prompt messages when the list came up
    ScriptedPrompt* prompt = nullptr;
    bool timerRunning = false;
    std::deque<std::optional<QString>> passwordSet;
    std::deque<std::optional<ChangePasswordEntry>> changePassword;
    std::deque<std::optional<QString>> passwordInput;

private:
    template <typename T>
    std::optional<T> Next(std::deque<std::optional<T>>& queue) {
        if (queue.empty()) {
            ADD_FAILURE() << "a password dialog nobody expected";
            return std::nullopt;
        }
        auto answer = queue.front();
        queue.pop_front();
        return answer;
    }
};

class TransferTest : public ::testing::Test {
protected:
    TransferTest();
    ~TransferTest() override;

    // The bus (one station 1, model 1205 unless `setup` says otherwise) behind "COM1", 19200 8N2.
    void OpenBus(sim::BusSetup setup = TestBusSetup());
    // A new project of `model` at 50 Hz, the session linked to `stations`.
    void NewProject(int model = 1205, std::vector<int> stations = {1});

    // What reached the bus, in order.
    std::vector<Frame> Sent() const { return m_line->Sent(); }
    void ClearSent();  // counts from now on: frames before are ignored by the helpers below
    std::vector<Frame> SentSince() const;
    // Start registers of the function-16 frames sent since ClearSent, in order.
    std::vector<int> WriteStarts() const;
    // Registers written (function 6 and 16) since ClearSent.
    std::set<int> WrittenRegisters() const;
    // Start registers of the reads since ClearSent, in order.
    std::vector<int> ReadStarts() const;

    std::uint16_t DriveValue(int reg, int station = 1);
    void SetDriveValue(int reg, std::uint16_t value, int station = 1);
    void SetIntercept(Interceptor f) { *m_intercept = std::move(f); }

    ParamRow& Row(int group, int row) { return m_doc->RowAt(group, row); }

    ScriptedPrompt m_prompt;
    SessionState m_session;
    FakeWindows m_windows;
    std::shared_ptr<sim::SimBus> m_bus;
    std::shared_ptr<sim::SimLine> m_line;
    std::shared_ptr<Interceptor> m_intercept = std::make_shared<Interceptor>();
    std::optional<ScopedChannelFactory> m_factory;
    // Every InitComm the factory saw (it runs on the link's own thread).
    std::vector<OpenRequest> Opens() const {
        std::lock_guard lock(m_opensMutex);
        return m_opens;
    }
    mutable std::mutex m_opensMutex;
    std::vector<OpenRequest> m_opens;
    std::unique_ptr<CDriveSerial> m_link;
    std::unique_ptr<CM330Doc> m_doc;
    std::size_t m_sentMark = 0;
};

}  // namespace quillon::test
