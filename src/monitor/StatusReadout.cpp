#include "monitor/StatusReadout.h"

#include "link/FaultCodes.h"
#include "link/Registers.h"

namespace quillon {
namespace {

constexpr MeasuredValue kValues[] = {
    {"set frequency", StatusWordIndex::FirstValue + Monitor::SetFrequency, 0.01, 2, 372, 119},
    {"output frequency", StatusWordIndex::FirstValue + Monitor::OutputFrequency, 0.01, 2, 372, 142},
    {"output voltage", StatusWordIndex::FirstValue + Monitor::OutputVoltage, 0.1, 1, 372, 191},
    {"DC voltage", StatusWordIndex::FirstValue + Monitor::DcVoltage, 1.0, 0, 372, 215},
    {"output current", StatusWordIndex::FirstValue + Monitor::OutputCurrent, 0.1, 1, 372, 167},
};

constexpr Terminal kTerminals[] = {
    {"R1", 6, 251}, {"DI1", 0, 305}, {"DI2", 1, 335}, {"DI3", 2, 365}, {"DI4", 3, 395},
};

// A status lamp is lit when the bit under `mask` reads `set`.
struct StatusLampRule {
    std::uint16_t mask;
    bool set;
    LampColour colour;
    int x, y;
};

constexpr StatusLampRule kStatusLamps[] = {
    {StatusBit::Ready, true, LampColour::Green, 143, 117},
    {StatusBit::Abnormal, true, LampColour::Red, 143, 141},
    {StatusBit::Abnormal, true, LampColour::Red, 497, 117},  // the fault lamp
    {StatusBit::Running, false, LampColour::Orange, 143, 165},
    {StatusBit::Running, true, LampColour::Red, 143, 189},
    {StatusBit::Reverse, false, LampColour::Green, 143, 213},
    {StatusBit::Reverse, true, LampColour::Green, 143, 237},
};

}  // namespace

std::span<const MeasuredValue> MeasuredValues() { return kValues; }

QString ValueText(const MeasuredValue& value, std::uint16_t raw)
{
    if (value.decimals == 0)
        return QString::number(raw);
    return QString::asprintf("%.*f", value.decimals, raw * value.scale);
}

std::vector<Lamp> StatusLamps(std::uint16_t statusWord)
{
    std::vector<Lamp> lit;
    for (const StatusLampRule& r : kStatusLamps) {
        if (((statusWord & r.mask) != 0) == r.set)
            lit.push_back(Lamp{r.colour, r.x, r.y});
    }
    return lit;
}

std::span<const Terminal> Terminals() { return kTerminals; }

std::vector<Lamp> TerminalLamps(std::uint16_t terminalWord)
{
    std::vector<Lamp> lit;
    for (const Terminal& t : kTerminals) {
        if (terminalWord & (1u << t.bit))
            lit.push_back(Lamp{LampColour::Green, t.x, kTerminalLampY});
    }
    return lit;
}

FaultTexts FaultTextsOf(std::uint32_t code)
{
    const FaultCodeRow* row = FindFaultCode(code);
    if (!row)
        return {};
    return {QString::fromUtf8(row->display), QString::fromUtf8(row->description)};
}

}  // namespace quillon
