#include "monitor/KeyPadItems.h"

#include "link/ModbusFrame.h"
#include "link/Registers.h"

namespace quillon {
namespace {

struct KeyPadItem {
    const char* listText;  // nullptr: no list entry
    int offset;            // register in the monitor block
    int decimals;          // 0: whole number
    const char* unit;      // after the value in a monitor slot
};

// Item 8 says "ACI Input" and shows register 0x2529 in kilowatts: the drive's own panel does.
constexpr KeyPadItem kItems[kKeyPadItems] = {
    {"1: Set Frequency", Monitor::SetFrequency, 2, " Hz"},
    {"2: Output Frequency", Monitor::OutputFrequency, 2, " Hz"},
    {"3: Output Voltage", Monitor::OutputVoltage, 1, " V"},
    {"4: DC Voltage", Monitor::DcVoltage, 0, " V"},
    {"5: Output Current", Monitor::OutputCurrent, 1, " A"},
    {"6: PID Feedback", Monitor::PidFeedback, 0, " %"},
    {"7: PID Input", Monitor::PidInput, 1, " %"},
    {"8: AVI Input", Monitor::AviInput, 2, " V"},
    {"9: ACI Input", Monitor::AciInput, 1, " Kw"},
    {nullptr, Monitor::Temperature, 1, " Degree C"},
    {nullptr, Monitor::Load, 0, " %"},
};

constexpr int kBlockBytes = 3 + 2 * Monitor::Count + 2;

}  // namespace

QStringList KeyPadItemList()
{
    QStringList list;
    for (const KeyPadItem& item : kItems)
        if (item.listText) list << QString::fromLatin1(item.listText);
    return list;
}

QString KeyPadItemText(int item, const std::vector<unsigned char>& block, bool forDisplay)
{
    if (item < 0 || item >= kKeyPadItems || block.size() < kBlockBytes)
        return QString();
    const KeyPadItem& it = kItems[item];
    const std::uint16_t raw = FrameWord(block.data(), 3 + 2 * it.offset);
    QString text = it.decimals == 0 ? QString::number(raw)
                                    : QString::asprintf("%.*f", it.decimals,
                                                        raw * (it.decimals == 1 ? 0.1 : 0.01));
    if (!forDisplay)
        text += QLatin1String(it.unit);
    return text;
}

int StepDisplayItem(int listIndex, bool up)
{
    const int next = up ? (listIndex + 1) % kKeyPadItems
                        : (listIndex - 1 < 0 ? listIndex - 1 + kKeyPadItems : listIndex - 1);
    return next < kKeyPadListedItems ? next : -1;
}

}  // namespace quillon
