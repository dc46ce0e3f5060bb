#pragma once
// The drive's fault and warning codes as RegFaultCode reports them: a display name as the
// drive's own panel shows it and a description. Code 0 means the drive reports nothing; a code
// without a row shows nothing at all.

#include <cstdint>
#include <span>

namespace quillon {

struct FaultCodeRow {
    std::uint32_t code;
    const char* display;
    const char* description;
};

// Every row, in order of code.
std::span<const FaultCodeRow> FaultCodeTable();

// The row of `code`, or nullptr when the table has none.
const FaultCodeRow* FindFaultCode(std::uint32_t code);

}  // namespace quillon
