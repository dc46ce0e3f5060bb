#pragma once
// Runs one of our programs as a person would from a shell, and keeps what it said.

#include <QString>
#include <QStringList>

namespace quillon::test {

struct ProgramRun {
    int code = -1;     // exit code; -2 when the program crashed, -1 when it never finished
    QString out;
    QString err;
    QStringList OutLines() const { return out.split('\n', Qt::SkipEmptyParts); }
};

// Starts `program` with `args`, waits up to `timeoutMs`; a program that doesn't finish is
// killed and fails the test.
ProgramRun RunProgram(const QString& program, const QStringList& args, int timeoutMs = 30000);

}  // namespace quillon::test
