#pragma once
// A simulated network module: the drive bus behind a TCP data port, as the module passes RTU
// frames between its Ethernet side and its serial line, and the module's answers on UDP port
// 30718: the device search and the address assignment (link/SearchProtocol.h). When it is
// given a new address it moves its data port there and answers from there from then on.
//
// The module hears the search on `searchListen` (all addresses unless told otherwise; a
// broadcast address such as 127.255.255.255 hears only what is sent there) and answers from
// its own address, from a port of its own, so that its answers never land on its own socket.
// POSIX only.

#include "link/SearchProtocol.h"
#include "sim/SimBus.h"

#include <QString>
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace quillon::sim {

class StreamServer;
class TcpListener;

struct ModuleSetup {
    QString address = QStringLiteral("127.0.0.1");  // the module's address
    int tcpPort = 0;                                 // data port; 0 takes a free one
    MacBytes mac{};                                  // all zero: one made from the data port
    bool answerSearch = true;
    QString searchListen = QStringLiteral("0.0.0.0");
    int searchPort = kSearchPort;
};

// A MAC for a module of its own, from its data port: 02-00-00-00-hh-ll.
MacBytes ModuleMacForPort(int tcpPort);

class NetworkModule {
public:
    // Throws std::runtime_error when the data port can't be opened. A search port that can't
    // be bound leaves the module without search answers (Searchable() false).
    NetworkModule(SimBus& bus, const ModuleSetup& setup);
    ~NetworkModule();
    NetworkModule(const NetworkModule&) = delete;
    NetworkModule& operator=(const NetworkModule&) = delete;

    QString Address() const;
    int TcpPort() const { return m_nPort; }
    QString Mac() const { return MacText(m_setup.mac); }
    bool Searchable() const { return m_searchFd >= 0; }
    // Search queries heard so far.
    int QueriesHeard() const { return m_nQueries; }

    // Called on the module's own thread after it took a new address.
    void OnAddressChange(std::function<void(const QString&)> callback);

private:
    void StartData(std::unique_ptr<TcpListener> listener);
    void StopData();
    void SearchLoop();
    void Answer(const QByteArray& datagram, const void* sender, unsigned senderLength);
    // Moves the data port and the answering socket to `address`: false, with nothing changed,
    // when either can't be opened there.
    bool MoveTo(std::uint32_t address);

    SimBus& m_bus;
    ModuleSetup m_setup;
    int m_nPort = 0;
    mutable std::mutex m_mutex;  // guards m_setup.address and the callback
    std::function<void(const QString&)> m_onAddressChange;
    std::unique_ptr<TcpListener> m_listener;
    std::unique_ptr<StreamServer> m_server;
    std::thread m_dataThread;
    int m_searchFd = -1;
    int m_answerFd = -1;
    int m_wake[2] = {-1, -1};
    std::atomic<int> m_nQueries{0};
    std::thread m_searchThread;
};

}  // namespace quillon::sim
