#include "support/ProgramRun.h"

#include <QElapsedTimer>
#include <QFile>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace quillon::test {

void LimitFileSize(long bytes) {
    const rlimit limit{static_cast<rlim_t>(bytes), static_cast<rlim_t>(bytes)};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, SIG_IGN);
}

namespace {

// Reads what is ready on `fd` into `into`; false at its end.
bool Drain(int fd, QByteArray& into) {
    char buf[4096];
    const ssize_t n = ::read(fd, buf, sizeof buf);
    if (n > 0) into.append(buf, n);
    return n > 0 || (n < 0 && errno == EINTR);
}

}  // namespace

// A plain fork and exec rather than QProcess: QProcess starts its child in a way the
// ThreadSanitizer build does not follow, after which that build no longer sees this thread's
// locks, and the link threads a test goes on using look unsynchronised.
ProgramRun RunProgram(const QString& program, const QStringList& args, int timeoutMs,
                      const std::function<void()>& inChild) {
    std::vector<QByteArray> argStore{QFile::encodeName(program)};
    for (const QString& a : args) argStore.push_back(a.toLocal8Bit());
    std::vector<char*> argv;
    for (QByteArray& a : argStore) argv.push_back(a.data());
    argv.push_back(nullptr);
    int out[2], err[2];
    ProgramRun r;
    if (::pipe2(out, O_CLOEXEC) != 0 || ::pipe2(err, O_CLOEXEC) != 0) {
        ADD_FAILURE() << "no pipe for " << program.toStdString();
        return r;
    }
    const pid_t pid = ::fork();
    if (pid == 0) {
        const int none = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        ::dup2(none, 0);
        ::dup2(out[1], 1);
        ::dup2(err[1], 2);
        if (inChild) inChild();
        ::execvp(argv[0], argv.data());
        ::_exit(127);
    }
    ::close(out[1]);
    ::close(err[1]);
    if (pid < 0) {
        ::close(out[0]);
        ::close(err[0]);
        ADD_FAILURE() << "can't start " << program.toStdString();
        return r;
    }
    QByteArray outBytes, errBytes;
    pollfd fds[2] = {{out[0], POLLIN, 0}, {err[0], POLLIN, 0}};
    QElapsedTimer clock;
    clock.start();
    bool timedOut = false;
    while (fds[0].fd >= 0 || fds[1].fd >= 0) {
        const qint64 left = timeoutMs - clock.elapsed();
        if (left <= 0) {
            timedOut = true;
            break;
        }
        if (::poll(fds, 2, static_cast<int>(left)) < 0 && errno != EINTR) break;
        for (pollfd& f : fds)
            if (f.fd >= 0 && (f.revents & (POLLIN | POLLHUP | POLLERR)) &&
                !Drain(f.fd, &f == fds ? outBytes : errBytes)) {
                ::close(f.fd);
                f.fd = -1;
            }
    }
    for (const pollfd& f : fds)
        if (f.fd >= 0) ::close(f.fd);
    // A program may close its output and go on running: the time-out holds until it has ended.
    int status = 0;
    for (;;) {
        if (timedOut) ::kill(pid, SIGKILL);
        const pid_t ended = ::waitpid(pid, &status, timedOut ? 0 : WNOHANG);
        if (ended == pid || (ended < 0 && errno != EINTR)) break;
        if (ended == 0) {
            timedOut = clock.elapsed() >= timeoutMs;
            if (!timedOut) ::usleep(10'000);
        }
    }
    r.out = QString::fromUtf8(outBytes);
    r.err = QString::fromUtf8(errBytes);
    if (timedOut)
        ADD_FAILURE() << program.toStdString() << " did not finish";
    else
        r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -2;
    return r;
}

}  // namespace quillon::test
