// main() of the widget tests: the real application object, so that its event dispatch (and its
// last-resort error handling) is the one under test. Headless through the offscreen platform,
// with a temporary directory of the tests' own.

#include "AppFeatures.h"
#include "shell/M330App.h"
#include "support/TestDirs.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    ::testing::InitGoogleTest(&argc, argv);
    QTemporaryDir settings;
    // curfile.ini and the session files' second place live in the temporary directory: the
    // tests' own, never the machine's.
    quillon::test::PrivateTempDir temp;
    quillon::CM330App app(argc, argv,
                          {settings.filePath("recent.ini"), QString(), /*showWindow=*/false, {}});
    quillon::RegisterAppFeatures(app.Features());  // as the program's main() does
    return RUN_ALL_TESTS();
}
