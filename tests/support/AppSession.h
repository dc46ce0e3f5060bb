#pragma once
// A fresh start of the program on a private program directory, as the widget tests need it:
// the process-wide settings back at their initial values, then the application's start-up.

#include "shell/M330App.h"
#include "shell/MainFrame.h"
#include "support/TestDirs.h"

namespace quillon::test {

CM330App& App();

struct AppSession {
    AppSession();
    // File New with the Model Select dialog answered: `model` at 50 Hz.
    void NewProject(const QString& model);

    TempAppDir dir;
    CMainFrame* frame = nullptr;
};

}  // namespace quillon::test
