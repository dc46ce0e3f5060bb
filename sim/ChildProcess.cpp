#include "sim/ChildProcess.h"

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace quillon::sim {

ChildProcess::ChildProcess(const std::vector<std::string>& argv)
{
    int pipeFds[2];
    if (::pipe2(pipeFds, O_CLOEXEC) != 0)
        throw std::runtime_error("pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], STDOUT_FILENO);
    std::vector<char*> args;
    for (const auto& a : argv)
        args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);
    pid_t pid = -1;
    const int rc = ::posix_spawnp(&pid, args[0], &actions, nullptr, args.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipeFds[1]);
    m_out = pipeFds[0];
    if (rc != 0)
        throw std::runtime_error("can't start " + argv[0]);
    m_pid = pid;
}

ChildProcess::~ChildProcess()
{
    Stop();
    if (m_out >= 0)
        ::close(m_out);
}

void ChildProcess::Stop()
{
    if (m_pid <= 0)
        return;
    ::kill(m_pid, SIGTERM);
    int status = 0;
    ::waitpid(m_pid, &status, 0);
    m_pid = -1;
}

std::string ChildProcess::WaitForLine(const std::string& prefix, std::chrono::milliseconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    for (;;) {
        for (std::size_t nl; (nl = m_pending.find('\n')) != std::string::npos;) {
            std::string line = m_pending.substr(0, nl);
            m_pending.erase(0, nl + 1);
            if (line.rfind(prefix, 0) == 0)
                return line;
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            return {};
        pollfd p{m_out, POLLIN, 0};
        if (::poll(&p, 1, static_cast<int>(left.count())) <= 0)
            return {};
        char buf[256];
        const ssize_t n = ::read(m_out, buf, sizeof buf);
        if (n <= 0)
            return {};
        m_pending.append(buf, static_cast<std::size_t>(n));
    }
}

}  // namespace quillon::sim
