#include "base/TextTable.h"

#include "base/Language.h"

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
    // Texts of our own for the messages that have always had an id but never fixed words.
    TextEntry{61623, "The run command source (00-02) isn't 0, parameter 00-01 can't be written!"},
    // The names of the parameter groups, as the project tree and the Edit menu show them; the
    // catalogue's group lines carry the same names.
    TextEntry{61624, "群组 00: 基本功能"},
    TextEntry{61625, "群组 01: V/F 控制"},
    TextEntry{61626, "群组 02: 电机参数"},
    TextEntry{61627, "群组 03: 数字输入输出"},
    TextEntry{61628, "群组 04: 模拟输入输出"},
    TextEntry{61629, "群组 05: 多段速"},
    TextEntry{61630, "群组 06: 自动程序运转"},
    TextEntry{61631, "群组 07: 启动与停止"},
    TextEntry{61632, "群组 08: 保护功能"},
    TextEntry{61633, "群组 09: 通讯功能"},
    TextEntry{61634, "群组 10: PID 功能"},
    TextEntry{61635, "群组 11: 辅助功能"},
    TextEntry{61636, "群组 12: 监视功能"},
    TextEntry{61637, "群组 13: 维护功能"},
    TextEntry{61643,
              "The inverter's voltage class differs from the project's model, can't write "
              "parameters to it!"},
    TextEntry{61645, "简易参数群组"},
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
    // Without a translator installed this is the table's own text, byte for byte.
    return Translated("TextTable", it->text);
}

QString FormatText(int id, int value)
{
    QString text = LoadText(id);
    const qsizetype at = text.indexOf(QLatin1String("%d"));
    if (at >= 0)
        text.replace(at, 2, QString::number(value));
    return text;
}

}  // namespace quillon
