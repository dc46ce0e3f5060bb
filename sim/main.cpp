// r770-sim: a simulated bus of R770 drives for tests, benchmarks and demonstrations.
// See `r770-sim --help`.

#include "base/DataFiles.h"
#include "sim/Endpoints.h"
#include "sim/NetworkModule.h"
#include "sim/SimBus.h"
#include "sim/SimOptions.h"
#include "sim/StreamServer.h"

#include <QCoreApplication>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

using namespace quillon;
using namespace quillon::sim;

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    SimOptions options;
    bool help = false;
    const QString error = ParseSimOptions(app.arguments().mid(1), options, help);
    if (help) {
        std::fputs(qPrintable(SimHelpText()), stdout);
        return 0;
    }
    if (!error.isEmpty()) {
        std::fprintf(stderr, "r770-sim: %s (see --help)\n", qPrintable(error));
        return 2;
    }
    if (options.bus.dataDir.isEmpty())
        options.bus.dataDir = DataFolderOf(QCoreApplication::applicationDirPath() + u'/',
                                           QStringLiteral("PARAM.DAT"));

    // The servers' threads must not take the stop signals; the main thread waits for them.
    sigset_t stopSignals;
    sigemptyset(&stopSignals);
    sigaddset(&stopSignals, SIGINT);
    sigaddset(&stopSignals, SIGTERM);
    sigaddset(&stopSignals, SIGHUP);
    pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);

    try {
        SimBus bus(options.bus);
        std::optional<PtyEndpoint> pty;
        std::unique_ptr<NetworkModule> module;
        std::optional<SerialDevice> device;
        std::vector<std::unique_ptr<StreamServer>> servers;
        std::vector<std::thread> threads;
        std::atomic<bool> deviceClosed{false};

        if (!options.ptyPath.isEmpty()) {
            pty.emplace(options.ptyPath);
            auto& server = *servers.emplace_back(std::make_unique<StreamServer>(bus));
            // The bus holds the terminal's other side open, so masters come and go freely.
            threads.emplace_back([&server, fd = pty->Fd()] {
                while (server.Serve(fd) == StreamServer::End::Closed) {
                }
            });
            std::printf("pty %s %s\n", qPrintable(pty->LinkPath()), qPrintable(pty->DevicePath()));
        }
        if (options.tcpPort >= 0) {
            ModuleSetup setup;
            setup.address = options.bindAddress;
            setup.tcpPort = options.tcpPort;
            setup.answerSearch = options.answerSearch;
            setup.searchListen = options.searchListen;
            setup.mac = options.mac.value_or(MacBytes{});
            module = std::make_unique<NetworkModule>(bus, setup);
            module->OnAddressChange([](const QString& address) {
                std::printf("address %s\n", qPrintable(address));
                std::fflush(stdout);
            });
            std::printf("tcp %s:%d\n", qPrintable(options.bindAddress), module->TcpPort());
            if (module->Searchable())
                std::printf("search %s:%d mac %s\n", qPrintable(setup.searchListen), kSearchPort,
                            qPrintable(module->Mac()));
            else if (options.answerSearch)
                std::printf("search off: UDP port %d can't be bound\n", kSearchPort);
        }
        if (!options.devicePath.isEmpty()) {
            device.emplace(options.devicePath, bus.Line());
            auto& server = *servers.emplace_back(std::make_unique<StreamServer>(bus));
            threads.emplace_back([&server, &device, &deviceClosed] {
                const auto end = server.Serve(device->Fd(),
                                              [&device](const LineSettings& l) { device->Apply(l); });
                if (end == StreamServer::End::Closed)
                    deviceClosed = true;
            });
            std::printf("device %s\n", qPrintable(options.devicePath));
        }
        std::printf("line %s\nready\n", qPrintable(LineText(bus.Line())));
        std::fflush(stdout);

        // Runs until a stop signal, or until the device's other end has gone.
        const timespec poll{0, 200'000'000};
        while (!deviceClosed) {
            if (sigtimedwait(&stopSignals, nullptr, &poll) > 0)
                break;
        }
        for (auto& s : servers)
            s->Stop();
        for (auto& t : threads)
            t.join();
        module.reset();
    } catch (const std::exception& e) {
        std::fprintf(stderr, "r770-sim: %s\n", e.what());
        return 1;
    }
    return 0;
}
