#include "monitor/GraphChannels.h"

#include "base/TextTable.h"
#include "link/Registers.h"

namespace quillon {
namespace {

struct Channel {
    const char* name;
    int offset;  // in the monitor block
    int divisor; // register units per channel unit
    int decimals;
};

// "PID Feedback" is a whole number; the others carry the decimals of their unit.
constexpr Channel kChannels[] = {
    {"Set Frequency", Monitor::SetFrequency, 100, 2},
    {"Output Frequency", Monitor::OutputFrequency, 100, 2},
    {"Output Voltage", Monitor::OutputVoltage, 10, 1},
    {"DC Voltage", Monitor::DcVoltage, 1, 0},
    {"Output Current", Monitor::OutputCurrent, 10, 1},
    {"PID Feedback", Monitor::PidFeedback, 1, 0},
    {"PID Input", Monitor::PidInput, 10, 1},
    {"AVI Input", Monitor::AviInput, 100, 2},
};

}  // namespace

ChannelReading ReadChannel(const QString& name, const MonitorWords& words)
{
    ChannelReading r;
    if (name == LoadText(TextId::NoDisplay)) {
        r.known = true;
        r.text = QStringLiteral("0.0");
        return r;
    }
    for (const Channel& c : kChannels) {
        if (name != QLatin1String(c.name))
            continue;
        r.known = true;
        r.raw = words[c.offset];
        r.unitDivisor = c.divisor;
        r.value = static_cast<double>(r.raw) / c.divisor;
        r.text = QString::number(r.value, 'f', c.decimals);
        return r;
    }
    return r;
}

bool CurveShown(const QString& name) { return name != LoadText(TextId::NoDisplay); }

const QStringList& ChannelListEntries()
{
    static const QStringList kEntries{
        QStringLiteral("No Display"),   QStringLiteral("Set Frequency"),
        QStringLiteral("Output Frequency"), QStringLiteral("Output Voltage"),
        QStringLiteral("DC Voltage"),   QStringLiteral("Output Current"),
        QStringLiteral("PID Feedback"), QStringLiteral("PID Input"),
        QStringLiteral("AVI Input"),    QStringLiteral("ACI Input")};
    return kEntries;
}

int ChannelListIndex(const QString& name)
{
    const QStringList& entries = ChannelListEntries();
    for (int i = 0; i < entries.size(); ++i)
        if (entries[i].compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return 0;
}

}  // namespace quillon
