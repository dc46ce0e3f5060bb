#pragma once
// Where the simulated bus meets a master: a pseudo-terminal it creates, a serial device it is
// given (one end of a socat pair, a real adapter), or a TCP port on which it plays the network
// module. Each owns its descriptor and releases it on destruction.

#include "link/LineSettings.h"

#include <QString>

namespace quillon::sim {

class PtyEndpoint {
public:
    // Opens a pseudo-terminal and makes `linkPath` a symbolic link to its device, replacing an
    // older link there (never a file that isn't a link). Throws std::runtime_error.
    explicit PtyEndpoint(const QString& linkPath);
    ~PtyEndpoint();
    PtyEndpoint(const PtyEndpoint&) = delete;
    PtyEndpoint& operator=(const PtyEndpoint&) = delete;

    int Fd() const { return m_master; }
    QString DevicePath() const { return m_strDevice; }
    QString LinkPath() const { return m_strLink; }
    // Closes the bus side: a master on the device sees its line vanish.
    void Close();

private:
    int m_master = -1;
    int m_slave = -1;  // held open so the bus side never sees a hang-up between masters
    QString m_strDevice;
    QString m_strLink;
};

class SerialDevice {
public:
    // Opens a serial device raw with `line`. Throws std::runtime_error.
    SerialDevice(const QString& path, const LineSettings& line);
    ~SerialDevice();
    SerialDevice(const SerialDevice&) = delete;
    SerialDevice& operator=(const SerialDevice&) = delete;

    int Fd() const { return m_fd; }
    // Applies new line settings (after the drive changed its own).
    void Apply(const LineSettings& line);

private:
    int m_fd = -1;
};

class TcpListener {
public:
    // Listens on `address` ("127.0.0.1" unless told otherwise) and `port`; port 0 takes a
    // free one. Throws std::runtime_error.
    TcpListener(const QString& address, int port);
    ~TcpListener();
    TcpListener(const TcpListener&) = delete;
    TcpListener& operator=(const TcpListener&) = delete;

    int Fd() const { return m_fd; }
    int Port() const { return m_nPort; }

private:
    int m_fd = -1;
    int m_nPort = 0;
};

}  // namespace quillon::sim
