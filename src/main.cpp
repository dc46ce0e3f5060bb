// Quillon: configures and monitors R770 variable-frequency inverters.

#include "shell/M330App.h"
#include "transfer/TransferUi.h"

int main(int argc, char** argv) {
    quillon::CM330App app(argc, argv);
    quillon::RegisterTransferCommands(app.Features());
    if (!app.InitInstance()) return 1;
    const int rc = app.exec();
    app.ExitInstance();
    return rc;
}
