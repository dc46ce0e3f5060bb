#pragma once
// The command line of r770-sim.

#include "sim/SimBus.h"

#include <QString>
#include <QStringList>

namespace quillon::sim {

struct SimOptions {
    QString ptyPath;        // --pty PATH
    int tcpPort = -1;       // --tcp PORT; -1: none, 0: any free port
    QString bindAddress = QStringLiteral("127.0.0.1");
    QString devicePath;     // --device PATH
    BusSetup bus;
};

// Parses the arguments that follow the program name. Returns an empty text on success, else
// what is wrong. `help` is set when --help was asked for (nothing else is then checked).
QString ParseSimOptions(const QStringList& args, SimOptions& options, bool& help);

QString SimHelpText();

}  // namespace quillon::sim
