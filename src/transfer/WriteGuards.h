#pragma once
// The refusals a drive gives before parameters are written to it: a password set on the drive
// keeps every value out, and a running drive takes no group (a single row may be allowed while
// it runs; its page decides). The Write command and the editor's Transmit Group ask the drive
// both questions in the same order, each as a transaction of its own.

#include <functional>

namespace quillon {

class CDriveSerial;

inline constexpr const char* kDriveLockedText =
    "The station num %1 has exist password, can't write parameter value!";
inline constexpr const char* kDriveRunningText = "INV is running,please stop it first.";

// Runs one transaction (on the link's worker on the desktop) and gives its result.
using TransactionRunner = std::function<bool(const std::function<bool()>&)>;

// The password test, then the running test. A refusal is told by message; a read that failed has
// been told by the reply judge. False when the write must not go on.
bool PassWriteGuards(CDriveSerial& link, int station, const TransactionRunner& run);

}  // namespace quillon
