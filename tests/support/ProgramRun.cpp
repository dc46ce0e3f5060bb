#include "support/ProgramRun.h"

#include <QProcess>
#include <gtest/gtest.h>

namespace quillon::test {

ProgramRun RunProgram(const QString& program, const QStringList& args, int timeoutMs) {
    QProcess p;
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
