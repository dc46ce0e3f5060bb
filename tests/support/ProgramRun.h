#pragma once
// Runs one of our programs as a person would from a shell, and keeps what it said.

#include <QString>
#include <QStringList>
#include <functional>

namespace quillon::test {

struct ProgramRun {
    int code = -1;     // exit code; -2 when the program crashed, -1 when it never finished
    QString out;
    QString err;
    QStringList OutLines() const { return out.split('\n', Qt::SkipEmptyParts); }
};

// Starts `program` (looked up in PATH) with `args` and nothing on its standard input, waits up
// to `timeoutMs`; a program that doesn't finish is killed and fails the test. `inChild` runs in the child before the program starts (limits).
ProgramRun RunProgram(const QString& program, const QStringList& args, int timeoutMs = 30000,
                      const std::function<void()>& inChild = {});

// Makes every file write past `bytes` fail with "File too large" in this process and the
// programs it starts, the way a full disk fails it.
void LimitFileSize(long bytes);

}  // namespace quillon::test
