#include "shell/TextTable.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

// Keep this ordered by id: LoadText searches it by halving. The words, spelling and spacing are
// the ones people have always seen on screen; don't tidy them.
constexpr std::array kTexts{
    TextEntry{61450, "Project"},
    TextEntry{61455, "Unlink"},
    TextEntry{61456, "TYPE:"},
    TextEntry{61459, "Parameter"},
    TextEntry{61468, "Can't Open the Port!"},
    TextEntry{61491, "No display"},
    TextEntry{61554, "Can't find file Help.chm!"},
    TextEntry{61566, "Some a file lost,please setup Quillon again."},
    TextEntry{61572, "The station num %d communcation error!"},
    TextEntry{61576, "PC software is under auto-refresh,Please stop auto-refresh first!"},
    TextEntry{61579, "Can't open the file!"},
    TextEntry{61582,
              "The software version is too old, can't open the file! please download the latest "
              "version!"},
};

constexpr bool StrictlyAscending()
{
    for (std::size_t i = 1; i < kTexts.size(); ++i) {
        if (kTexts[i - 1].id >= kTexts[i].id)
            return false;
    }
    return true;
}
static_assert(StrictlyAscending(), "text table must be ordered by id, each id once");

}  // namespace

std::span<const TextEntry> TextTable()
{
    return kTexts;
}

QString LoadText(int id)
{
    const auto it = std::lower_bound(kTexts.begin(), kTexts.end(), id,
                                     [](const TextEntry& e, int key) { return e.id < key; });
    if (it == kTexts.end() || it->id != id)
        return QString();
    return QString::fromUtf8(it->text);
}

}  // namespace quillon
