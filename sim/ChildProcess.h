#pragma once
// A program started as a child process, for the tests and the benchmark that drive r770-sim
// and socat: its standard output can be read line by line, and it is ended (SIGTERM) and
// reaped when the object goes. POSIX only.

#include <chrono>
#include <string>
#include <vector>

namespace quillon::sim {

class ChildProcess {
public:
    // argv[0] is looked up in PATH when it holds no '/'. Its standard output can be read line
    // by line; its standard error goes to ours.
    explicit ChildProcess(const std::vector<std::string>& argv);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // The next line of output that starts with `prefix` within `timeout`; empty if none.
    std::string WaitForLine(const std::string& prefix, std::chrono::milliseconds timeout);
    // Ends the process now (SIGTERM) and waits for it.
    void Stop();
    bool Running() const { return m_pid > 0; }

private:
    int m_pid = -1;
    int m_out = -1;
    std::string m_pending;
};

}  // namespace quillon::sim
