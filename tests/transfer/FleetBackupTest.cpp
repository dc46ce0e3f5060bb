// The fleet backup against simulated network modules in this process: links side by side, and a
// station or a link that fails noted while the rest is saved.

#include "LinkTestSupport.h"
#include "support/TestDirs.h"
#include "params/M330Doc.h"
#include "sim/NetworkModule.h"
#include "transfer/FleetBackup.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace quillon::test {
namespace {

// A module on a free loopback port with the given stations (model 201). When `slow` it answers
// as a line at 19200 baud would, and 10 ms later, so that the line's time outweighs the work of
// building each project.
struct Module {
    Module(std::vector<sim::StationSetup> stations, bool slow) : bus(Setup(stations, slow)),
          module(bus, ModuleSetup()) {}
    static sim::BusSetup Setup(std::vector<sim::StationSetup> stations, bool slow) {
        sim::BusSetup s = TestBusSetup();
        s.stations = std::move(stations);
        s.wireTiming = slow;
        s.faults.extraDelayMs = slow ? 10 : 0;
        return s;
    }
    static sim::ModuleSetup ModuleSetup() {
        sim::ModuleSetup m;
        m.answerSearch = false;
        return m;
    }
    LinkTarget Target() const {
        LinkTarget t;
        t.port = QStringLiteral("TCPIP");
        t.peer.m_nAddress = 0x7F000001;
        t.peer.m_nPort = static_cast<std::uint16_t>(module.TcpPort());
        return t;
    }
    sim::SimBus bus;
    sim::NetworkModule module;
};

double Timed(const std::vector<LinkTarget>& targets, const QString& dir,
             std::vector<BackupResult>& results) {
    const auto t0 = std::chrono::steady_clock::now();
    results = RunFleetBackup(targets, {1}, dir, DataDir());
    return SecondsSince(t0);
}

TEST(FleetBackupTest, LinksRunSideBySide) {
    Module a({{1, 201}}, true);
    Module b({{1, 201}}, true);
    {
        // The first project of the process reads the data files from the disk.
        SessionState session;
        session.m_strAppDir = DataDir();
        CM330Doc warm(session);
    }
    QTemporaryDir dir;
    std::vector<BackupResult> one, two;
    const double single = Timed({a.Target()}, dir.path(), one);
    const double both = Timed({a.Target(), b.Target()}, dir.path(), two);
    ASSERT_EQ(two.size(), 2u);
    for (const BackupResult& r : two) EXPECT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_LT(both, 1.5 * single) << "one module " << single << " s, two " << both << " s";
    const QString name = QStringLiteral("127.0.0.1_%1-1.qpj").arg(b.module.TcpPort());
    EXPECT_TRUE(QFileInfo::exists(dir.filePath(name))) << name.toStdString();
}

// Station 2 stops answering after its identification; a second link has nobody listening.
TEST(FleetBackupTest, FailuresAreNotedAndTheRestIsSaved) {
    Module a({{1, 201}, {2, 201, 3}, {3, 1205}}, false);
    LinkTarget gone = a.Target();
    {
        Module closed({{1, 201}}, false);
        gone = closed.Target();
    }
    QTemporaryDir dir;
    const std::vector<BackupResult> results =
        RunFleetBackup({a.Target(), gone}, {1, 2, 3}, dir.path(), DataDir());
    ASSERT_EQ(results.size(), 6u);
    const QString prefix = dir.filePath(QStringLiteral("127.0.0.1_%1-").arg(a.module.TcpPort()));
    for (int s = 0; s < 3; ++s) {
        EXPECT_EQ(results[std::size_t(s)].ok, s != 1) << s;
        EXPECT_EQ(QFileInfo::exists(prefix + QString::number(s + 1) + ".qpj"), s != 1);
        EXPECT_FALSE(results[std::size_t(s) + 3].ok);
        EXPECT_TRUE(results[std::size_t(s) + 3].error.startsWith("Can't Open the Port!"));
    }
    EXPECT_EQ(results[2].model, "R770-2P5-Kxx");
    EXPECT_FALSE(results[1].error.isEmpty());
    const QString summary = FormatBackupSummary(results);
    EXPECT_TRUE(summary.contains(QStringLiteral("FAILED: ") + results[1].error)) << summary.toStdString();
    EXPECT_TRUE(summary.endsWith("2 of 6 stations saved, 4 failed\n")) << summary.toStdString();
}

}  // namespace
}  // namespace quillon::test
