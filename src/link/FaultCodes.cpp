#include "link/FaultCodes.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

constexpr std::array kFaults{
    FaultCodeRow{0, "-", ""},
    FaultCodeRow{1, "oH", "The inverter is overheated when stopped"},
    FaultCodeRow{2, "OC", "Over-current during stop"},
    FaultCodeRow{3, "LV", "Voltage too low when stopped"},
    FaultCodeRow{4, "oV", "Voltage too high when stopped"},
    FaultCodeRow{6, "b.b.", "External base block"},
    FaultCodeRow{8, "PdEr", "PID feedback loss"},
    FaultCodeRow{9, "EPr", "EEPROM problem"},
    FaultCodeRow{12, "oL2", "Inverter overload"},
    FaultCodeRow{13, "oL1", "Motor overload"},
    FaultCodeRow{14, "EFO", "Communication external fault"},
    FaultCodeRow{15, "E.S", "External rapid stop"},
    FaultCodeRow{16, "LoC", "Parameter locked"},
    FaultCodeRow{18, "oC-C", "Over-current at fixed speed"},
    FaultCodeRow{19, "oC-A", "Over-current at acceleration"},
    FaultCodeRow{20, "oC-d", "Over-current at deceleration"},
    FaultCodeRow{21, "oC-S", "Over-current at start"},
    FaultCodeRow{23, "LV-C", "Voltage too low during operation"},
    FaultCodeRow{24, "oV-C", "Excessive voltage during operation/deceleration"},
    FaultCodeRow{26, "StP0", "Zero speed at stop"},
    FaultCodeRow{27, "StP1", "Fail to start directly on power up"},
    FaultCodeRow{28, "StP2", "Keypad emergency stop operated"},
    FaultCodeRow{29, "Err1", "Keypad operation error"},
    FaultCodeRow{30, "Err2", "Parameter setting error"},
    FaultCodeRow{32, "Err5", "Modification of parameter is not available in communication"},
    FaultCodeRow{33, "Err6", "Communication failed"},
    FaultCodeRow{34, "Err7", "Parameter conflict"},
};

constexpr bool Ascending()
{
    for (std::size_t i = 1; i < kFaults.size(); ++i) {
        if (kFaults[i - 1].code >= kFaults[i].code)
            return false;
    }
    return true;
}
static_assert(Ascending(), "fault table must be ordered by code, each code once");

}  // namespace

std::span<const FaultCodeRow> FaultCodeTable()
{
    return kFaults;
}

const FaultCodeRow* FindFaultCode(std::uint32_t code)
{
    const auto it = std::lower_bound(kFaults.begin(), kFaults.end(), code,
                                     [](const FaultCodeRow& r, std::uint32_t c) { return r.code < c; });
    return it != kFaults.end() && it->code == code ? &*it : nullptr;
}

}  // namespace quillon
