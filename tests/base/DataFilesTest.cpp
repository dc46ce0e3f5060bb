// Where the programs find their data files: beside themselves, then in the installed data folder.

#include "base/DataFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quillon;

TEST(DataFiles, BesideTheProgramFirstThenTheInstalledFolder) {
    QTemporaryDir prefix;
    ASSERT_TRUE(prefix.isValid());
    ASSERT_TRUE(QDir(prefix.path()).mkpath("bin"));
    const QString bin = prefix.path() + "/bin/";
    const QString share = prefix.path() + "/share/quillon/";
    EXPECT_EQ(InstalledDataDir(bin), share);
    // Not installed, and nothing beside the program: it is missing beside the program.
    EXPECT_EQ(DataFilePath(bin, "PARAM.DAT"), bin + "PARAM.DAT");

    ASSERT_TRUE(QDir(prefix.path()).mkpath("share/quillon/help"));
    const auto touch = [](const QString& path) {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    };

    // Installed: only the data folder has it (also in a subfolder).
    touch(share + "PARAM.DAT");
    touch(share + "help/index.html");
    EXPECT_EQ(DataFilePath(bin, "PARAM.DAT"), share + "PARAM.DAT");
    EXPECT_EQ(DataFilePath(bin, "help/index.html"), share + "help/index.html");
    EXPECT_EQ(DataFolderOf(bin, "PARAM.DAT"), share);

    // A copy beside the program (the build tree, a portable copy) wins.
    touch(bin + "PARAM.DAT");
    EXPECT_EQ(DataFilePath(bin, "PARAM.DAT"), bin + "PARAM.DAT");
    EXPECT_EQ(DataFolderOf(bin, "PARAM.DAT"), bin);

    // Installed but lost: named in the installed folder, where it belongs.
    EXPECT_EQ(DataFilePath(bin, "R770.SPE"), share + "R770.SPE");
}
