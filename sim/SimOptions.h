#pragma once
// The command line of r770-sim.

#include "link/SearchProtocol.h"
#include "sim/SimBus.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace quillon::sim {

struct SimOptions {
    QString ptyPath;        // --pty PATH
    int tcpPort = -1;       // --tcp PORT; -1: none, 0: any free port
    QString bindAddress = QStringLiteral("127.0.0.1");
    QString devicePath;     // --device PATH
    std::optional<MacBytes> mac;  // --mac; none: one made from the TCP port
    QString searchListen = QStringLiteral("0.0.0.0");  // --search-listen ADDRESS
    bool answerSearch = true;     // off with --no-search
    BusSetup bus;
};

// Parses the arguments that follow the program name. Returns an empty text on success, else
// what is wrong. `help` is set when --help was asked for (nothing else is then checked).
QString ParseSimOptions(const QStringList& args, SimOptions& options, bool& help);

QString SimHelpText();

}  // namespace quillon::sim
