// Quillon: configures and monitors R770 variable-frequency inverters.

#include "base/SafeSave.h"
#include "shell/M330App.h"
#include "AppFeatures.h"

int main(int argc, char** argv) {
    quillon::FailWritesOverTheSizeLimit();
    quillon::CM330App app(argc, argv);
    quillon::RegisterAppFeatures(app.Features());
    if (!app.InitInstance()) return 1;
    const int rc = app.exec();
    app.ExitInstance();
    return rc;
}
