#pragma once
// The places a session file (kcomfile.ini, PZ4comfile.ini) is kept, in the order they are tried
// for writing and for reading:
//   1. the program folder, as the tool always did;
//   2. the user's configuration folder ($XDG_CONFIG_HOME/quillon, else ~/.config/quillon), for an
//      installed program whose folder can't be written, so the settings survive a restart;
//   3. the temporary folder, where earlier versions left the file when (1) failed.

#include <QByteArrayView>
#include <QString>
#include <array>
#include <optional>

namespace quillon {

// The user's configuration folder for this program, without a closing separator.
QString UserConfigDir();

// The three places of the session file `name` (a bare file name) for the program folder
// `programDir` (with its closing separator).
std::array<QString, 3> SessionFilePlaces(const QString& programDir, const QString& name);

// Saves `bytes` in the first of the places that takes them, making the configuration folder when
// the program folder refuses the file. When none does the person is told why (SaveSessionFile).
bool SaveSessionFileAt(const std::array<QString, 3>& places, QByteArrayView bytes);

// The first place `read` gets something from (read returns std::optional), or nullopt.
template <class Read>
auto ReadSessionFileAt(const std::array<QString, 3>& places, Read read) -> decltype(read(places[0])) {
    for (const QString& path : places)
        if (auto got = read(path)) return got;
    return std::nullopt;
}

}  // namespace quillon
