#pragma once
// Serves a SimBus over a byte stream: the master side of a pseudo-terminal, a serial device,
// or a TCP connection. Requests are cut into frames as a drive would (FrameAssembler.h), and
// each reply is written when the bus scheduled it, byte by byte under wire timing.
// POSIX only: the simulator is a tool for this platform's tests and demonstrations.

#include "link/LineSettings.h"
#include "sim/SimBus.h"

#include <atomic>
#include <functional>

namespace quillon::sim {

class StreamServer {
public:
    explicit StreamServer(SimBus& bus);
    ~StreamServer();
    StreamServer(const StreamServer&) = delete;
    StreamServer& operator=(const StreamServer&) = delete;

    enum class End { Stopped, Closed };

    // Serves requests on `fd` until Stop() or until the other end closes. `onLineChange`, if
    // given, is called with the new settings after a reply that changed them.
    End Serve(int fd, const std::function<void(const LineSettings&)>& onLineChange = {});

    // Accepts TCP connections on `listenFd` one after the other and serves each until its
    // peer closes; returns at Stop().
    void ServeListener(int listenFd);

    // Ends Serve / ServeListener soon; callable from any thread and from signal handlers' peers.
    void Stop();

private:
    bool WaitReadable(int fd, int timeoutMs, bool& hangup);
    bool Transmit(int fd, const ScheduledReply& reply);

    SimBus& m_bus;
    int m_wake[2] = {-1, -1};
    std::atomic<bool> m_bStop{false};
};

}  // namespace quillon::sim
