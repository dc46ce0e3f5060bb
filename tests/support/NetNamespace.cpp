#include "support/NetNamespace.h"

#include "support/ProgramRun.h"

#include <QFileInfo>
#include <cerrno>
#include <cstring>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quillon::test {
namespace {

constexpr const char* kChildVariable = "QUILLON_NETNS_CHILD";
constexpr int kChildTimeoutMs = 100'000;

bool BringLoopbackUp(QString& why)
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd < 0) {
        why = QStringLiteral("socket: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    ifreq ifr{};
    std::strncpy(ifr.ifr_name, "lo", IFNAMSIZ - 1);
    bool ok = ::ioctl(fd, SIOCGIFFLAGS, &ifr) == 0;
    if (ok) {
        ifr.ifr_flags = static_cast<short>(ifr.ifr_flags | IFF_UP | IFF_RUNNING);
        ok = ::ioctl(fd, SIOCSIFFLAGS, &ifr) == 0;
    }
    if (!ok)
        why = QStringLiteral("can't bring lo up: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
    ::close(fd);
    return ok;
}

// Whether `unshare -rn` works here; the reason when it doesn't. Asked once.
bool NamespacesAvailable(QString& why)
{
    static const QString reason = [] {
        const ProgramRun probe = RunProgram(QStringLiteral("unshare"), {"-rn", "true"}, 10'000);
        if (probe.code == 127)
            return QStringLiteral("'unshare -rn' could not be run (util-linux missing?)");
        if (probe.code != 0)
            return QStringLiteral("no user/network namespaces here ('unshare -rn' says: %1)")
                .arg((probe.out + probe.err).trimmed());
        return QString();
    }();
    why = reason;
    return reason.isEmpty();
}

}  // namespace

NetnsRun RunInOwnNetworkNamespace(QString& why)
{
    if (qEnvironmentVariableIsSet(kChildVariable)) {
        if (!BringLoopbackUp(why))
            ADD_FAILURE() << why.toStdString();
        return NetnsRun::Inside;
    }
    if (!NamespacesAvailable(why))
        return NetnsRun::Unavailable;

    const ::testing::TestInfo* info = ::testing::UnitTest::GetInstance()->current_test_info();
    const QString filter =
        QStringLiteral("--gtest_filter=%1.%2").arg(QLatin1String(info->test_suite_name()),
                                                   QLatin1String(info->name()));
    const QString exe = QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget();
    const ProgramRun child =
        RunProgram(QStringLiteral("env"),
                   {QStringLiteral("%1=1").arg(QLatin1String(kChildVariable)), QStringLiteral("unshare"),
                    QStringLiteral("-rn"), exe, filter},
                   kChildTimeoutMs);
    const QString output = child.out + child.err;
    if (child.code != 0) {
        ADD_FAILURE() << "the test failed in its network namespace:\n" << output.toStdString();
    } else if (!output.contains(QLatin1String("[  PASSED  ] 1 test"))) {
        ADD_FAILURE() << "the test did not run in its network namespace:\n" << output.toStdString();
    }
    return NetnsRun::Done;
}

}  // namespace quillon::test
