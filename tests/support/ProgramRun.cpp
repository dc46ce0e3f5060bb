#include "support/ProgramRun.h"

#include <QProcess>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace quillon::test {

void LimitFileSize(long bytes) {
    const rlimit limit{static_cast<rlim_t>(bytes), static_cast<rlim_t>(bytes)};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, SIG_IGN);
}

ProgramRun RunProgram(const QString& program, const QStringList& args, int timeoutMs,
                      const std::function<void()>& inChild) {
    QProcess p;
    if (inChild) p.setChildProcessModifier(inChild);
    p.start(program, args);
    ProgramRun r;
    if (!p.waitForFinished(timeoutMs)) {
        p.kill();
        p.waitForFinished();
        ADD_FAILURE() << program.toStdString() << " did not finish";
        return r;
    }
    r.code = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -2;
    r.out = QString::fromUtf8(p.readAllStandardOutput());
    r.err = QString::fromUtf8(p.readAllStandardError());
    return r;
}

}  // namespace quillon::test
