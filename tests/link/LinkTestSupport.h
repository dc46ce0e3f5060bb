#pragma once
// Shared pieces of the link and simulator tests: a simulated bus from the test's data files,
// the same bus served on a real pseudo-terminal, child processes (the simulator program,
// socat, see sim/ChildProcess.h) that end with the test, and a link opened on a device path.

#include "link/DriveSerial.h"
#include "sim/ChildProcess.h"
#include "sim/Endpoints.h"
#include "sim/SimBus.h"
#include "sim/StreamServer.h"

#include <QString>
#include <QTemporaryDir>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace quillon::test {

using sim::ChildProcess;

// A bus with one station (1, model 1205) whose catalogue comes from the test's data files.
sim::BusSetup TestBusSetup();

// Two pseudo-terminals joined by socat: bytes written to one come out of the other.
class SocatPair {
public:
    SocatPair();
    QString A() const { return m_a; }
    QString B() const { return m_b; }
    bool Ready() const { return m_bReady; }

private:
    QTemporaryDir m_dir;
    QString m_a, m_b;
    std::unique_ptr<ChildProcess> m_socat;
    bool m_bReady = false;
};

// The simulated bus served in this process on a new pseudo-terminal.
class PtyBus {
public:
    explicit PtyBus(const sim::BusSetup& setup);
    ~PtyBus();

    sim::SimBus& Bus() { return m_bus; }
    QString Path() const { return m_pty->LinkPath(); }
    // The bus side closes: the master's line vanishes as when an adapter is pulled.
    void Vanish();

private:
    QTemporaryDir m_dir;
    sim::SimBus m_bus;
    std::unique_ptr<sim::PtyEndpoint> m_pty;
    sim::StreamServer m_server;
    std::thread m_thread;
};

// Opens `link` on the serial device `path` by pinning it to COM9 through QUILLON_PORTS, the
// way a person reaches a pseudo-terminal. Returns InitComm's result.
int OpenOnDevice(CSerial& link, const QString& path, unsigned long baud = 19200,
                 float stopBits = 2.0f);

// Seconds since `t0`.
inline double SecondsSince(std::chrono::steady_clock::time_point t0)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

}  // namespace quillon::test
