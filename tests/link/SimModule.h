#pragma once
// A simulated network module for the tests that run in their own network namespace: a drive
// bus (station 1, model 1205, version 1.234) behind the module's data port at `address`, and
// its answers to the search heard on 127.255.255.255.

#include "LinkTestSupport.h"
#include "sim/NetworkModule.h"

namespace quillon::test {

inline const QString kLoopbackBroadcast = QStringLiteral("127.255.255.255");

struct SimModule {
    SimModule(const QString& address, const MacBytes& mac)
        : bus(BusSetup()), module(bus, Setup(address, mac))
    {
    }
    static sim::BusSetup BusSetup()
    {
        sim::BusSetup s = TestBusSetup();
        s.version = 1234;
        return s;
    }
    static sim::ModuleSetup Setup(const QString& address, const MacBytes& mac)
    {
        sim::ModuleSetup m;
        m.address = address;
        m.tcpPort = kModuleDataPort;
        m.mac = mac;
        m.searchListen = kLoopbackBroadcast;
        return m;
    }

    sim::SimBus bus;
    sim::NetworkModule module;
};

}  // namespace quillon::test
