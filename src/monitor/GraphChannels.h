#pragma once
// The monitor values a graph curve can show. A channel's name picks a register of the monitor
// block, its scale and its text. The sampling compares names exactly, case included: the
// "Parameter Set" lists offer "No Display" with a capital while the unused default is
// "No display", so a curve set to "No Display" records zeros and is drawn, and only a curve that
// was never set stays hidden. The lists themselves are searched without regard to case, so that
// either spelling selects their first entry.

#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>

namespace quillon {

// The sixteen words of one sampling read from RegMonitorBlock.
inline constexpr int kGraphReadCount = 16;
using MonitorWords = std::array<std::uint16_t, kGraphReadCount>;

struct ChannelReading {
    bool known = false;  // false: the name matches no channel; value 0, empty text
    int raw = 0;         // the register number the running extremes compare
    int unitDivisor = 1; // 100 hundredths, 10 tenths, 1 whole
    double value = 0.0;  // in the channel's unit
    QString text;
};

// The reading of the channel called `name` (exact comparison) in `words`.
ChannelReading ReadChannel(const QString& name, const MonitorWords& words);

// True when a curve of this name is drawn: every name but the unused default.
bool CurveShown(const QString& name);

// The entries of each curve's list in the "Parameter Set" dialog, in order.
const QStringList& ChannelListEntries();
// The entry of `name` in that list, ignoring case; the first entry when there is none, so the
// project never keeps an index that points nowhere.
int ChannelListIndex(const QString& name);

}  // namespace quillon
