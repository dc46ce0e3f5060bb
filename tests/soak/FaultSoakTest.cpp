// The fault soak: the Read and Write commands and auto refresh run round after round against
// r770-sim on a pseudo-terminal, reached through a COM name pinned in QUILLON_PORTS, while the
// simulator spoils its answers: broken CRCs, replies dropped, replies cut in half, a station
// that goes silent, and at last the simulator killed while a Read waits for its reply.
//
// Every request the link puts on the line is logged on its way out. Knowing which answers the
// simulator spoils (every Nth reply of the bus, or everything after a station's Nth frame), the
// soak knows for each command where it must stop and what it must say: the command ends at the
// first spoiled frame and not a frame later, with exactly the one message its caller gives for
// that frame; a command that meets no spoiled frame runs through to its success message. Each
// failure must come within the link's time-out (plus a margin) after the spoiled frame left,
// and no good reply may cost a time-out. Afterwards the project file saved before the faults
// must be byte for byte what it was, and the same link, session and project still Write and
// Read a fresh simulator with the project's values.

#include "LinkTestSupport.h"

#include "base/Globals.h"
#include "base/Prompt.h"
#include "base/SessionState.h"
#include "base/StatusPanes.h"
#include "link/Channel.h"
#include "link/ChannelFactory.h"
#include "link/DriveSerial.h"
#include "link/ModbusFrame.h"
#include "link/PortMap.h"
#include "link/Registers.h"
#include "params/M330Doc.h"
#include "params/ProjectFile.h"
#include "sim/ChildProcess.h"
#include "support/ScopedEnv.h"
#include "support/TestDirs.h"
#include "transfer/AutoRefresh.h"
#include "transfer/GroupWrite.h"
#include "transfer/ReadLayout.h"
#include "transfer/TransferCommands.h"
#include "transfer/TransferWindows.h"
#include "transfer/WriteLayout.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <initializer_list>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace quillon::test {
namespace {

using Clock = std::chrono::steady_clock;
using Ms = std::chrono::milliseconds;
using Frame = std::vector<unsigned char>;

constexpr Ms kTimeout{kResponseTimeoutMs};
// What a command may take beyond the wait for its spoiled frame to end it: hiding the
// progress window and showing one message.
constexpr Ms kMargin{250};
// A good reply on a pseudo-terminal takes a few milliseconds; half the time-out is far from it
// and far from a time-out waited out.
constexpr Ms kGoodReplyLimit{kResponseTimeoutMs / 2};
// Upper bound of any single command or auto-refresh run of the soak.
constexpr Ms kCommandDeadline{10'000};

constexpr int kIdentificationFrames = 3;  // model word, capacity, version
constexpr int kCycleFrames = 26;          // one pass over the fifteen groups
// The Write of the soak's project (same model, fixed V/f curve): password, run status, model
// word, capacity, version, then groups 00 to 13 with the run source and motor current checks.
constexpr int kWriteFrames = 36;

const QString kCrcWord = QStringLiteral("CRC parity error!");
const QString kTimeoutWord = QStringLiteral("TimeOut!");
const QString kCommWord = QStringLiteral("Communication error!");
const QString kPasswordWord = QStringLiteral("Read parameter password error!");
const QString kSaveQuestion = QStringLiteral("The file has been modified,save it or not?");

double MsOf(Clock::duration d) { return std::chrono::duration<double, std::milli>(d).count(); }

// ---------------------------------------------------------------------------------------------
// The line as the soak sees it.

// Every request the link sent, and when it left.
class FrameLog {
public:
    void Add(const unsigned char* data, int length) {
        std::lock_guard lock(m_mutex);
        m_frames.emplace_back(data, data + length);
        m_times.push_back(Clock::now());
    }
    std::size_t Size() const {
        std::lock_guard lock(m_mutex);
        return m_frames.size();
    }
    std::vector<Frame> Frames() const {
        std::lock_guard lock(m_mutex);
        return m_frames;
    }
    std::vector<Clock::time_point> Times() const {
        std::lock_guard lock(m_mutex);
        return m_times;
    }

private:
    mutable std::mutex m_mutex;
    std::vector<Frame> m_frames;
    std::vector<Clock::time_point> m_times;
};

// The channel the program opens for a COM name, with every request noted on its way out.
class LoggingChannel final : public Channel {
public:
    LoggingChannel(std::unique_ptr<Channel> inner, std::shared_ptr<FrameLog> log)
        : m_inner(std::move(inner)), m_log(std::move(log)) {}
    bool AnyThreadIo() const override { return m_inner->AnyThreadIo(); }
    bool IsOpen() const override { return m_inner->IsOpen(); }
    void Close() override { m_inner->Close(); }
    void DiscardInput() override { m_inner->DiscardInput(); }
    ChannelStatus Send(const unsigned char* data, int length, int timeoutMs) override {
        m_log->Add(data, length);
        return m_inner->Send(data, length, timeoutMs);
    }
    ChannelStatus Receive(unsigned char* buffer, int max, int& got, int timeoutMs) override {
        return m_inner->Receive(buffer, max, got, timeoutMs);
    }
    QString Describe() const override { return m_inner->Describe(); }

private:
    std::unique_ptr<Channel> m_inner;
    std::shared_ptr<FrameLog> m_log;
};

// r770-sim serving a new pseudo-terminal, one station 1 of model 1205 unless `extra` says
// otherwise; ended with the object.
class SimOnPty {
public:
    explicit SimOnPty(const std::vector<std::string>& extra) {
        m_path = m_dir.filePath(QStringLiteral("drive"));
        std::vector<std::string> argv{R770_SIM,     "--pty",  m_path.toStdString(),
                                      "--data-dir", DataDir().toStdString(),
                                      "--baud",     "19200",  "--stop-bits", "2"};
        argv.insert(argv.end(), extra.begin(), extra.end());
        m_process = std::make_unique<sim::ChildProcess>(argv);
        m_bReady = !m_process->WaitForLine("ready", std::chrono::seconds(10)).empty();
    }
    bool Ready() const { return m_bReady; }
    QString Path() const { return m_path; }
    sim::ChildProcess& Process() { return *m_process; }

private:
    QTemporaryDir m_dir;
    QString m_path;
    std::unique_ptr<sim::ChildProcess> m_process;
    bool m_bReady = false;
};

// ---------------------------------------------------------------------------------------------
// The windows and the prompt around the commands.

struct Shown {
    QString text;
    Clock::time_point at;
};

// Answers the same way every time: the configured station, No to saving a modified project
// (the file on disk must stay as it is), No or Cancel to anything else. Notes every text with
// the moment it came; questions other than the save question are collected as unexpected.
class SoakPrompt final : public IPrompt {
public:
    SoakPrompt() : m_previous(SetPrompt(this)) {}
    ~SoakPrompt() override { SetPrompt(m_previous); }
    SoakPrompt(const SoakPrompt&) = delete;
    SoakPrompt& operator=(const SoakPrompt&) = delete;

    void Message(const QString& text, MessageKind) override {
        std::lock_guard lock(m_mutex);
        m_messages.push_back({text, Clock::now()});
    }
    Answer YesNoCancel(const QString& text) override {
        std::lock_guard lock(m_mutex);
        if (text == kSaveQuestion)
            ++m_nSaveQuestions;
        else
            m_unexpected << text;
        return Answer::No;
    }
    Answer YesNo(const QString& text) override { return Unexpected(text, Answer::No); }
    Answer OkCancel(const QString& text) override { return Unexpected(text, Answer::Cancel); }
    QString OpenFileName(const QString& caption, const QString&, const QString&) override {
        Unexpected(caption, Answer::Cancel);
        return {};
    }
    QString SaveFileName(const QString& caption, const QString&, const QString&,
                         const QString&) override {
        Unexpected(caption, Answer::Cancel);
        return {};
    }
    std::optional<int> ChooseStation(const QString&, const std::vector<int>& stations) override {
        std::lock_guard lock(m_mutex);
        for (int s : stations)
            if (s == m_nStation) return m_nStation;
        m_unexpected << QStringLiteral("station %1 is not offered").arg(m_nStation);
        return std::nullopt;
    }

    void SetStation(int station) {
        std::lock_guard lock(m_mutex);
        m_nStation = station;
    }
    std::size_t MessageCount() const {
        std::lock_guard lock(m_mutex);
        return m_messages.size();
    }
    std::vector<Shown> MessagesSince(std::size_t mark) const {
        std::lock_guard lock(m_mutex);
        return {m_messages.begin() + static_cast<std::ptrdiff_t>(mark), m_messages.end()};
    }
    QStringList Unexpected() const {
        std::lock_guard lock(m_mutex);
        return m_unexpected;
    }
    int SaveQuestions() const {
        std::lock_guard lock(m_mutex);
        return m_nSaveQuestions;
    }

private:
    Answer Unexpected(const QString& text, Answer answer) {
        std::lock_guard lock(m_mutex);
        m_unexpected << text;
        return answer;
    }

    IPrompt* m_previous;
    mutable std::mutex m_mutex;
    std::vector<Shown> m_messages;
    QStringList m_unexpected;
    int m_nSaveQuestions = 0;
    int m_nStation = 1;
};

class SoakProgress final : public IProgress {
public:
    bool IsVisible() const override { return visible; }
    void Show(const QString&) override { visible = true; }
    void Hide() override { visible = false; }
    void SetRange(int, int) override {}
    void SetPos(int) override {}
    void SetLabel(const QString&) override {}
    bool visible = false;
};

class SoakWindows final : public ITransferWindows {
public:
    SoakWindows(SessionState& session, CDriveSerial& link) : m_session(session), m_link(link) {}

    IProgress& Progress() override { return progress; }
    void SetStatusPane(int pane, const QString& text) override { panes[pane] = text; }
    void RefreshList() override {}
    CM330Doc* Document() override { return doc.get(); }
    CM330Doc* NewDocumentForDrive() override { return nullptr; }
    bool SaveProject() override {
        ++saves;  // never answered Yes to; a save would be a fault of the soak's own
        return false;
    }
    CDriveSerial* Link() override { return &m_link; }
    void DeleteLink() override { ++linkDeletes; }
    void ShowUnwrittenParams(const std::vector<MotorParam>&) override { ++unwrittenShown; }
    void SetRefreshTimer(bool running) override { timerRunning = running; }
    std::optional<QString> AskPasswordSet() override { return std::nullopt; }
    std::optional<ChangePasswordEntry> AskChangePassword() override { return std::nullopt; }
    std::optional<QString> AskPasswordInput() override { return std::nullopt; }

    // The project as it is on disk, as File > Open leaves it.
    bool OpenProject(const QString& path) {
        auto opened = std::make_unique<CM330Doc>(m_session);
        const ProjectOpenResult result = OpenProjectDocument(*opened, path);
        EXPECT_TRUE(result.ok) << result.error.toStdString();
        if (!result.ok) return false;
        doc = std::move(opened);
        return true;
    }

    SoakProgress progress;
    std::map<int, QString> panes;
    std::unique_ptr<CM330Doc> doc;
    bool timerRunning = false;
    int saves = 0;
    int linkDeletes = 0;
    int unwrittenShown = 0;

private:
    SessionState& m_session;
    CDriveSerial& m_link;
};

// ---------------------------------------------------------------------------------------------
// Which answers the simulator spoils, and what each command must then say.

enum class Fault { BadCrc, Drop, Truncate, Silent };

struct FaultPlan {
    Fault fault;
    int n;  // every Nth reply of the bus; for Silent: each station's first N frames answered

    const char* Name() const {
        switch (fault) {
        case Fault::BadCrc: return "bad CRC";
        case Fault::Drop: return "dropped replies";
        case Fault::Truncate: return "truncated replies";
        case Fault::Silent: return "station going silent";
        }
        return "";
    }
    std::vector<std::string> SimArgs() const {
        const std::string count = std::to_string(n);
        switch (fault) {
        case Fault::BadCrc: return {"--bad-crc-every", count};
        case Fault::Drop: return {"--drop-every", count};
        case Fault::Truncate: return {"--truncate-every", count};
        case Fault::Silent: return {"--station", "1,2", "--silent-after", count};
        }
        return {};
    }
    // The word of the transaction result a spoiled answer gives.
    QString Word() const { return fault == Fault::BadCrc ? kCrcWord : kTimeoutWord; }
    bool WaitsOutTimeout() const { return fault != Fault::BadCrc; }

    // Whether the answer to frame `index` of `log` (everything sent to this simulator since it
    // started, all of it to stations on its bus) is spoiled.
    bool Spoiled(const std::vector<Frame>& log, std::size_t index) const {
        if (fault != Fault::Silent) return (index + 1) % static_cast<std::size_t>(n) == 0;
        int framesOfStation = 0;
        for (std::size_t i = 0; i <= index; ++i)
            if (log[i][0] == log[index][0]) ++framesOfStation;
        return framesOfStation > n;
    }
};

enum class Command { Read, Write, AutoRefresh };

const char* NameOf(Command c) {
    switch (c) {
    case Command::Read: return "Read";
    case Command::Write: return "Write";
    case Command::AutoRefresh: return "auto refresh";
    }
    return "";
}

int FunctionOf(const Frame& f) { return f.at(1); }
int RegisterOf(const Frame& f) { return FrameWord(f.data(), 2); }
int CountOf(const Frame& f) { return FrameWord(f.data(), 4); }

// The one message the command shows when the answer to `frame` fails with `word`, by the
// caller that sent the frame.
QString ExpectedMessage(Command command, const Frame& frame, const QString& word, int station) {
    if (command != Command::Write) return word;  // identification and group reads: the word
    if (FunctionOf(frame) == ModbusFn::WriteMultiple)
        return QStringLiteral("Station Num %1:write parameter group %2 ")
                   .arg(station)
                   .arg(RegisterOf(frame) >> 8) +
               word;
    const int reg = RegisterOf(frame);
    if (FunctionOf(frame) == ModbusFn::ReadHolding && CountOf(frame) == 1) {
        if (reg == RegParameterPassword) return kPasswordWord;
        // The run source before group 00, and the drive's curve points and motor currents
        // the write of groups 01 and 02 checks against.
        if (reg == RegRunSource || (reg >> 8) == 1 || (reg >> 8) == 2) return kCommWord;
    }
    return word;  // run status, model word, capacity, version
}

struct Outcome {
    Command command;
    bool ok = false;  // Read and Write: ran to their success message
    std::vector<Shown> messages;
    std::size_t first = 0;  // log index of the command's first frame
    std::size_t end = 0;    // one past its last frame
    Clock::time_point start, finish;
    int cycles = 0;  // auto refresh: cycles taken over
};

struct Tally {
    int commands = 0;
    int failures = 0;
    int successes = 0;
    int cycles = 0;
    double longestFailureMs = 0;
    double longestGoodMs = 0;  // the longest step from a well answered frame to the next
    std::map<QString, int> messages;  // failure texts and how often each came
};

// The texts shown, as one readable line for comparisons: ["TimeOut!"].
std::string Listed(const std::vector<Shown>& shown) {
    QStringList quoted;
    for (const Shown& s : shown) quoted << u'"' + s.text + u'"';
    return ('[' + quoted.join(QStringLiteral(", ")) + ']').toStdString();
}
std::string Listed(const QString& only) { return Listed({Shown{only, {}}}); }

// ---------------------------------------------------------------------------------------------

class FaultSoakTest : public ::testing::Test {
protected:
    FaultSoakTest() {
        ResetGlobals();
        g_strAppDir = DataDir();
        m_session.m_strAppDir = DataDir();
        m_session.m_nModelCode = 1205;
        m_session.m_nFreqClass = 0;
        m_session.m_stations = {1, 2};
        m_session.m_bOnline = 1;
    }
    ~FaultSoakTest() override {
        m_refresh.Stop();
        m_link.Close();
        ResetGlobals();
    }

    // The project of the soak: model 1205 with a few values moved off the factory ones, saved
    // before any fault. Returns its bytes on disk.
    QByteArray SaveProject() {
        CM330Doc doc(m_session);
        doc.OnNewDocument();
        for (const auto& [g, r] : kMovedRows) {
            ParamRow& row = doc.RowAt(g, r);
            EXPECT_TRUE(row.m_bExists && IsWrittenRow(g, r, WriteRoute::Command) && IsReadRow(g, r))
                << g << "-" << r;
            const QString moved = MovedValue(g, r, row.m_strSetValue);
            EXPECT_FALSE(moved.isEmpty()) << g << "-" << r;
            row.m_strSetValue = moved;
            m_moved.push_back(moved);
        }
        m_projectPath = m_dir.filePath(QStringLiteral("soak.qpj"));
        m_session.m_strProjectPath = m_projectPath;
        QString error;
        EXPECT_TRUE(SaveProjectDocument(doc, m_projectPath, error)) << error.toStdString();
        EXPECT_EQ(FileBytes(m_projectPath), WriteProject(doc));
        return FileBytes(m_projectPath);
    }

    // A value a few steps above `text` in the row's own format that a group write carries
    // exactly, so that reading it back gives the same text.
    static QString MovedValue(int group, int row, const QString& text) {
        const RegFormat format = ReadFormatOf(group, row);
        const quint16 v = ParseRegisterText(format, text);
        for (int k = 1; k < 10; ++k) {
            const auto next = static_cast<quint16>(v + k);
            const QString moved = FormatRegister(format, next);
            if (GroupWriteValue(group, row, moved) == next) return moved;
        }
        return {};
    }

    static QByteArray FileBytes(const QString& path) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) return {};
        return file.readAll();
    }

    // Opens the link on `sim` the way a person reaches a pseudo-terminal: COM1 pinned to it.
    void Connect(SimOnPty& sim) {
        m_log = std::make_shared<FrameLog>();
        ScopedEnv ports(kPortsEnvVar, QStringLiteral("COM1=%1").arg(sim.Path()).toLocal8Bit());
        ASSERT_EQ(m_link.InitComm(QStringLiteral("COM1"), 19200, 8, 0, 2.0f), 1)
            << m_link.OpenFailureDetail().toStdString();
        EXPECT_EQ(m_link.LinkDescription(), sim.Path());
    }

    Outcome Run(Command command, int wantCycles = 2) {
        Outcome o;
        o.command = command;
        const std::size_t mark = m_prompt.MessageCount();
        o.first = m_log->Size();
        o.start = Clock::now();
        switch (command) {
        case Command::Read:
            o.ok = m_commands.OnRead();
            break;
        case Command::Write:
            // What the person writes is the project as it was saved.
            if (m_windows.OpenProject(m_projectPath)) o.ok = m_commands.OnWrite();
            break;
        case Command::AutoRefresh:
            o.cycles = RunAutoRefresh(wantCycles);
            break;
        }
        o.finish = Clock::now();
        o.end = m_log->Size();
        o.messages = m_prompt.MessagesSince(mark);
        EXPECT_LT(o.finish - o.start, kCommandDeadline) << NameOf(command) << " hung";
        return o;
    }

    // Auto refresh on, timer 2 ticking, until `wantCycles` cycles were taken over or a cycle
    // failed; then off, which waits for the cycle under way.
    int RunAutoRefresh(int wantCycles) {
        const int before = m_refresh.CyclesApplied();
        m_refresh.OnToggle();
        EXPECT_EQ(m_session.m_bAutoRefresh, 1);
        const auto deadline = Clock::now() + kCommandDeadline;
        while (m_session.m_bAutoRefresh && m_refresh.CyclesApplied() - before < wantCycles) {
            if (Clock::now() > deadline) {
                ADD_FAILURE() << "auto refresh made no progress";
                break;
            }
            if (m_windows.timerRunning) m_refresh.Tick();
            std::this_thread::sleep_for(Ms(2));
        }
        if (m_session.m_bAutoRefresh) m_refresh.OnToggle();  // off
        EXPECT_EQ(m_session.m_bAutoRefresh, 0);
        EXPECT_FALSE(m_refresh.CycleRunning());
        EXPECT_FALSE(m_windows.timerRunning);
        return m_refresh.CyclesApplied() - before;
    }

    // The checks every command of a fault round goes through.
    void Judge(const FaultPlan& plan, const Outcome& o, Tally& tally) {
        SCOPED_TRACE(testing::Message() << NameOf(o.command) << " from frame " << o.first + 1);
        const std::vector<Frame> log = m_log->Frames();
        const std::vector<Clock::time_point> times = m_log->Times();
        const int station = log.size() > o.first ? log[o.first][0] : 0;
        ++tally.commands;
        tally.cycles += o.cycles;

        std::optional<std::size_t> spoiled;
        for (std::size_t i = o.first; i < o.end && !spoiled; ++i)
            if (plan.Spoiled(log, i)) spoiled = i;

        // A frame the command went on from had a good reply, and a good reply never costs a
        // time-out.
        for (std::size_t i = o.first; i + 1 < o.end; ++i) {
            EXPECT_LT(times[i + 1] - times[i], kGoodReplyLimit)
                << "frame " << i + 1 << " to the next took " << MsOf(times[i + 1] - times[i])
                << " ms";
            tally.longestGoodMs = std::max(tally.longestGoodMs, MsOf(times[i + 1] - times[i]));
        }

        if (!spoiled) {
            ++tally.successes;
            switch (o.command) {
            case Command::Read:
                EXPECT_TRUE(o.ok);
                EXPECT_EQ(o.end - o.first, std::size_t(kIdentificationFrames + kCycleFrames));
                EXPECT_EQ(Listed(o.messages), Listed(kReadSuccessful));
                break;
            case Command::Write:
                EXPECT_TRUE(o.ok);
                EXPECT_EQ(o.end - o.first, std::size_t(kWriteFrames));
                EXPECT_EQ(Listed(o.messages), Listed(kWriteSuccessful));
                break;
            case Command::AutoRefresh:
                EXPECT_TRUE(o.messages.empty()) << Listed(o.messages);
                EXPECT_GE(o.cycles, 1);
                EXPECT_EQ(o.end - o.first, std::size_t(kCycleFrames) * std::size_t(o.cycles));
                break;
            }
            return;
        }

        ++tally.failures;
        const std::size_t k = *spoiled;
        // The command stops at the spoiled frame: no retry, nothing after it.
        EXPECT_EQ(o.end, k + 1) << "the spoiled frame was " << k + 1;
        EXPECT_FALSE(o.ok);
        const QString expected = ExpectedMessage(o.command, log[k], plan.Word(), station);
        ++tally.messages[expected];
        EXPECT_EQ(Listed(o.messages), Listed(expected))
            << "spoiled frame " << k + 1 << ": function " << FunctionOf(log[k]) << " register 0x"
            << std::hex << RegisterOf(log[k]);
        if (o.command == Command::AutoRefresh) {
            EXPECT_EQ(o.cycles, static_cast<int>((k - o.first) / kCycleFrames));
        }

        // The failure came one time-out (or no time-out) after the spoiled frame left.
        const Clock::time_point failedAt = o.messages.empty() ? o.finish : o.messages.front().at;
        const Clock::duration wait = failedAt - times[k];
        tally.longestFailureMs = std::max(tally.longestFailureMs, MsOf(wait));
        if (plan.WaitsOutTimeout()) {
            EXPECT_GE(wait, kTimeout - Ms(5)) << MsOf(wait) << " ms";
            EXPECT_LE(wait, kTimeout + kMargin) << MsOf(wait) << " ms";
        } else {
            EXPECT_LE(wait, kMargin) << MsOf(wait) << " ms";
        }
        if (o.command != Command::AutoRefresh) {
            EXPECT_LE(o.finish - failedAt, kMargin) << "the command went on after its message";
        }
    }

    // One round of Read, Write and auto refresh against each of a row of fresh simulators that
    // spoil answers by `fault`, every `n`th one (Silent: everything after a station's `n`th
    // frame), all on the same link object, session and project.
    void Soak(Fault fault, std::initializer_list<int> ns) {
        const auto t0 = Clock::now();
        Tally tally;
        const char* name = "";
        std::map<Command, int> failed;
        for (int n : ns) {
            const FaultPlan plan{fault, n};
            name = plan.Name();
            SCOPED_TRACE(testing::Message() << plan.Name() << ", n = " << n);
            SimOnPty sim(plan.SimArgs());
            ASSERT_TRUE(sim.Ready()) << "r770-sim did not start";
            ASSERT_NO_FATAL_FAILURE(Connect(sim));
            m_prompt.SetStation(1);
            for (Command c : {Command::Read, Command::Write, Command::AutoRefresh}) {
                const int failuresBefore = tally.failures;
                Judge(plan, Run(c), tally);
                failed[c] += tally.failures - failuresBefore;
                // A spoiled answer leaves the link open.
                EXPECT_TRUE(m_link.IsOpen());
            }
            if (fault == Fault::Silent) {
                // Station 1 has gone quiet for good; station 2 on the same line answers until
                // it too has had its n frames.
                m_prompt.SetStation(2);
                const Outcome other = Run(Command::Read);
                EXPECT_EQ(other.ok, n >= kIdentificationFrames + kCycleFrames);
                Judge(plan, other, tally);
                m_prompt.SetStation(1);
            }
        }
        // Each command met the fault somewhere along the row.
        for (Command c : {Command::Read, Command::Write, Command::AutoRefresh})
            EXPECT_GT(failed[c], 0) << name << ": " << NameOf(c) << " never failed";
        std::printf("[ soak     ] %-22s %2d commands, %2d failed, %2d succeeded, %2d refresh "
                    "cycles; failures %.0f ms after their frame at most, good frames %.0f ms "
                    "apart at most; %.1f s\n",
                    name, tally.commands, tally.failures, tally.successes, tally.cycles,
                    tally.longestFailureMs, tally.longestGoodMs, MsOf(Clock::now() - t0) / 1000.0);
        for (const auto& [text, count] : tally.messages)
            std::printf("[ soak     ]     %2dx \"%s\"\n", count, qPrintable(text));
        m_summary.failures += tally.failures;
    }

    // The simulator killed while a Read waits for its reply: the pseudo-terminal closes under
    // the link, and the wait ends at once instead of at its time-out.
    void KillDuringRead() {
        SCOPED_TRACE("pty closed mid-read");
        const auto t0 = Clock::now();
        // The sixth frame (group 02's first) goes unanswered, so the link is surely waiting.
        constexpr std::size_t kWaitedFrame = 6;
        SimOnPty sim({"--silent-after", std::to_string(kWaitedFrame - 1)});
        ASSERT_TRUE(sim.Ready()) << "r770-sim did not start";
        ASSERT_NO_FATAL_FAILURE(Connect(sim));
        m_prompt.SetStation(1);

        Clock::time_point killedAt{};
        bool sawFrame = false;
        std::thread killer([&] {
            const auto deadline = Clock::now() + kCommandDeadline;
            while (m_log->Size() < kWaitedFrame && Clock::now() < deadline)
                std::this_thread::sleep_for(Ms(1));
            sawFrame = m_log->Size() >= kWaitedFrame;
            std::this_thread::sleep_for(Ms(50));  // well into the wait for the reply
            killedAt = Clock::now();
            sim.Process().Stop();
        });
        const Outcome o = Run(Command::Read);
        killer.join();
        ASSERT_TRUE(sawFrame) << "the Read never got to its sixth frame";

        const std::vector<Clock::time_point> times = m_log->Times();
        EXPECT_FALSE(o.ok);
        EXPECT_EQ(Listed(o.messages), Listed(kCommWord));
        EXPECT_EQ(o.end - o.first, kWaitedFrame);
        ASSERT_FALSE(o.messages.empty());
        const Clock::time_point failedAt = o.messages.front().at;
        EXPECT_GE(failedAt, killedAt);
        EXPECT_LT(failedAt - times[kWaitedFrame - 1], kTimeout)
            << "the Read waited out its time-out: " << MsOf(failedAt - times[kWaitedFrame - 1])
            << " ms";
        EXPECT_LE(failedAt - killedAt, kMargin) << MsOf(failedAt - killedAt) << " ms";
        // Groups 00 and 01 came in before the line went; group 02 did not.
        CM330Doc& doc = *m_windows.doc;
        EXPECT_FALSE(doc.RowAt(0, 0).m_strReadValue.isEmpty());
        EXPECT_FALSE(doc.RowAt(1, 0).m_strReadValue.isEmpty());
        EXPECT_TRUE(doc.RowAt(2, 0).m_strReadValue.isEmpty());
        EXPECT_FALSE(m_windows.progress.visible);
        EXPECT_FALSE(m_link.IsOpen());

        // On the lost line every command says so at once, without a frame and without waiting.
        struct AfterLoss {
            Command command;
            QString message;
        };
        for (const AfterLoss& a : {AfterLoss{Command::Read, kCommWord},
                                   AfterLoss{Command::Write, kPasswordWord},
                                   AfterLoss{Command::AutoRefresh, kCommWord}}) {
            const Outcome lost = Run(a.command);
            SCOPED_TRACE(NameOf(a.command));
            EXPECT_FALSE(lost.ok);
            EXPECT_EQ(Listed(lost.messages), Listed(a.message));
            EXPECT_EQ(lost.end, lost.first);
            EXPECT_EQ(lost.cycles, 0);
            EXPECT_LT(lost.finish - lost.start, kMargin);
        }
        std::printf("[ soak     ] %-22s Read ended %.0f ms after the kill, %.0f ms into the wait "
                    "for frame %zu, %.1f s\n",
                    "pty closed mid-read", MsOf(failedAt - killedAt),
                    MsOf(failedAt - times[kWaitedFrame - 1]), kWaitedFrame,
                    MsOf(Clock::now() - t0) / 1000.0);
    }

    // A fresh simulator on the same link object: the saved project is written and read back.
    void HealthyAfterwards() {
        SCOPED_TRACE("fresh simulator");
        SimOnPty sim({"--version", "1234"});
        ASSERT_TRUE(sim.Ready()) << "r770-sim did not start";
        ASSERT_NO_FATAL_FAILURE(Connect(sim));
        m_prompt.SetStation(1);

        const Outcome written = Run(Command::Write);
        EXPECT_TRUE(written.ok);
        EXPECT_EQ(Listed(written.messages), Listed(kWriteSuccessful));
        const WriteSnapshot sent = m_commands.Snapshot();
        EXPECT_EQ(m_commands.WriteMotorData(), 1);

        const Outcome read = Run(Command::Read);
        ASSERT_TRUE(read.ok);
        EXPECT_EQ(Listed(read.messages), Listed(kReadSuccessful));
        EXPECT_EQ(read.end - read.first, std::size_t(kIdentificationFrames + kCycleFrames));
        EXPECT_LT(read.finish - read.start, kTimeout) << "a clean Read waited somewhere";
        EXPECT_EQ(m_session.m_nModelCode, 1205);
        EXPECT_EQ(m_windows.panes[Pane::Version], "1.234");

        // Every value the Write sent came back as the text of what the drive took.
        CM330Doc& doc = *m_windows.doc;
        int compared = 0;
        for (int g = 0; g < 14; ++g)
            for (int r = 0; r < kSnapshotRows && r < static_cast<int>(doc.GroupAt(g).m_rows.size());
                 ++r) {
                if (!doc.RowAt(g, r).m_bExists || !IsWrittenRow(g, r, WriteRoute::Command) ||
                    !IsReadRow(g, r))
                    continue;
                const QString expected =
                    FormatRegister(ReadFormatOf(g, r),
                                   GroupWriteValue(g, r, sent[std::size_t(g)][std::size_t(r)]));
                EXPECT_EQ(doc.RowAt(g, r).m_strSetValue, expected) << g << "-" << r;
                ++compared;
            }
        EXPECT_GT(compared, 200);
        // The values moved off the factory ones are the project's own.
        for (std::size_t i = 0; i < kMovedRows.size(); ++i) {
            const auto& [g, r] = kMovedRows[i];
            EXPECT_EQ(doc.RowAt(g, r).m_strSetValue, m_moved[i]) << g << "-" << r;
        }
        std::printf("[ soak     ] %-22s Write %zu frames in %.0f ms, Read %zu frames in %.0f ms, "
                    "%d values read back as written\n",
                    "fresh simulator", written.end - written.first,
                    MsOf(written.finish - written.start), read.end - read.first,
                    MsOf(read.finish - read.start), compared);
    }

    static constexpr std::array<std::pair<int, int>, 5> kMovedRows{
        {{0, 14}, {3, 13}, {5, 17}, {7, 1}, {11, 4}}};

    SoakPrompt m_prompt;  // installed first, removed last
    SessionState m_session;
    QTemporaryDir m_dir;
    QString m_projectPath;
    std::vector<QString> m_moved;
    std::shared_ptr<FrameLog> m_log = std::make_shared<FrameLog>();
    // The program's own channel for a COM name, with the requests noted on the way out.
    ScopedChannelFactory m_factory{[this](const OpenRequest& request, QString& reason) {
        std::unique_ptr<Channel> channel = OpenSystemChannel(request, reason);
        if (!channel) return channel;
        return std::unique_ptr<Channel>(
            std::make_unique<LoggingChannel>(std::move(channel), m_log));
    }};
    CDriveSerial m_link;
    SoakWindows m_windows{m_session, m_link};
    CTransferCommands m_commands{m_session, m_windows};
    CAutoRefresh m_refresh{m_session, m_windows};
    Tally m_summary;
};

TEST_F(FaultSoakTest, ReadWriteAndAutoRefreshThroughLineFaultsThenHealthy) {
    const auto t0 = Clock::now();
    const QByteArray saved = SaveProject();
    ASSERT_FALSE(saved.isEmpty());
    ASSERT_TRUE(m_windows.OpenProject(m_projectPath));

    // A Read is 29 frames (3 of identification), a Write 36 (5 of guards and identification,
    // then the groups with the run source and motor current checks among them), an auto-refresh
    // cycle 26. The values of n put the spoiled answer at a different place each time: in the
    // identification and in the group frames of Read, in every guard and in group frames of
    // Write, in the first and in later cycles of auto refresh; some commands run through.
    // Every spoiled answer of the last three costs one time-out.
    Soak(Fault::BadCrc, {1, 2, 4, 6, 11, 30, 35, 40, 45, 53});
    Soak(Fault::Drop, {3, 6, 12, 31, 40, 57});
    Soak(Fault::Truncate, {2, 5, 13, 34, 44, 55});
    Soak(Fault::Silent, {20, 60});
    KillDuringRead();

    EXPECT_EQ(FileBytes(m_projectPath), saved) << "the project file changed under the faults";
    HealthyAfterwards();
    EXPECT_EQ(FileBytes(m_projectPath), saved);
    ASSERT_TRUE(m_windows.OpenProject(m_projectPath));
    EXPECT_EQ(WriteProject(*m_windows.doc), saved);

    EXPECT_TRUE(m_prompt.Unexpected().isEmpty()) << m_prompt.Unexpected().join('|').toStdString();
    EXPECT_GT(m_prompt.SaveQuestions(), 0);  // a Read over a read project asked, and was told No
    EXPECT_EQ(m_windows.saves, 0);
    EXPECT_EQ(m_windows.linkDeletes, 0);
    EXPECT_EQ(m_windows.unwrittenShown, 0);
    EXPECT_EQ(m_session.m_bReading, 0);
    EXPECT_EQ(m_session.m_bWriting, 0);
    EXPECT_FALSE(m_windows.progress.visible);
    EXPECT_GT(m_summary.failures, 20);
    const double seconds = MsOf(Clock::now() - t0) / 1000.0;
    std::printf("[ soak     ] %d failures judged, whole soak %.1f s\n", m_summary.failures,
                seconds);
    EXPECT_LT(seconds, 55.0);
}

}  // namespace
}  // namespace quillon::test
