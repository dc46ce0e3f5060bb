#pragma once
// Where the program's data files are: the catalogue, the motor list, the initial table, the model
// list and the manual. A program run from its build folder or unpacked as a portable copy has them
// beside itself; an installed one has them in the installed data folder (share/quillon beside the
// bin folder it runs from). Session files (line settings, modules) are not data files: they keep
// to the program folder and the user's configuration folder (SessionPlaces.h).

#include <QString>

namespace quillon {

// The installed data folder that belongs to a program in `programDir` (with its closing
// separator): "<programDir>/../share/quillon/".
QString InstalledDataDir(const QString& programDir);

// The path of the data file `name` (may name a subfolder, "help/index.html") for the program in
// `programDir`: beside the program when it is there, else in the installed data folder when
// there is one (an installed program; a missing file is reported there), else beside the program
// (the build tree, a portable copy).
QString DataFilePath(const QString& programDir, const QString& name);

// The folder holding the data file `name` for the program in `programDir`, with its closing
// separator.
QString DataFolderOf(const QString& programDir, const QString& name);

}  // namespace quillon
