#pragma once
// How InitComm gets its channel. By default a COM name opens the serial device behind it
// (PortMap.h) and "TCPIP" connects to the network module; tests and demonstrations install
// another factory to put a simulated drive behind the same names.

#include "link/Channel.h"
#include "link/LineSettings.h"

#include <QString>
#include <functional>
#include <memory>

namespace quillon {

struct OpenRequest {
    QString m_strPortName;  // as given to InitComm: "COM3", "\\.\COM12" or "TCPIP"
    bool m_bTcp = false;    // the port name was "TCPIP"
    QString m_strDevice;    // device behind a COM name; empty when none is known
    LineSettings m_line;
    PeerAddress m_peer;     // for TCPIP
    QString m_strMac;       // the module's MAC text as given to GetStrMac
};

// Returns an open channel, or nullptr with `reason` set. Called on the link's I/O thread.
using ChannelFactory = std::function<std::unique_ptr<Channel>(const OpenRequest&, QString& reason)>;

// The real one: serial port or TCP connection.
std::unique_ptr<Channel> OpenSystemChannel(const OpenRequest& request, QString& reason);

// The factory InitComm uses from now on; an empty function restores OpenSystemChannel.
void SetChannelFactory(ChannelFactory factory);
ChannelFactory CurrentChannelFactory();

// Installs a factory for the lifetime of a scope.
class ScopedChannelFactory {
public:
    explicit ScopedChannelFactory(ChannelFactory factory) { SetChannelFactory(std::move(factory)); }
    ~ScopedChannelFactory() { SetChannelFactory({}); }
    ScopedChannelFactory(const ScopedChannelFactory&) = delete;
    ScopedChannelFactory& operator=(const ScopedChannelFactory&) = delete;
};

}  // namespace quillon
