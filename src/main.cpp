// Quillon: configures and monitors R770 variable-frequency inverters.

#include "base/SafeSave.h"
#include "shell/M330App.h"
#include "AppFeatures.h"

int main(int argc, char** argv) {
    quillon::FailWritesOverTheSizeLimit();
    quillon::CM330App::Options options;
    options.singleInstance = true;
    quillon::CM330App app(argc, argv, options);
    quillon::RegisterAppFeatures(app.Features());
    if (!app.InitInstance()) return app.HandedOver() ? 0 : 1;
    const int rc = app.exec();
    app.ExitInstance();
    return rc;
}
