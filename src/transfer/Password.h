#pragma once
// The drive's parameter password. The program keeps, compares and stores no password: it asks
// the drive whether it is locked (RegParameterPassword reads 2), and sends values to the same
// register with function 6. Sent twice in a row to a drive without a password, a value becomes
// its password; sent once to a locked drive, the right value unlocks it.
//
// A password is a whole number from 0 to 65535, typed as at most five decimal digits. An empty
// field passes every check and counts as 0.

#include <QString>
#include <optional>

namespace quillon {

struct SessionState;
class ITransferWindows;

inline constexpr int kPasswordLength = 5;  // characters a password edit takes
inline constexpr int kPasswordMax = 65535;

// The field checks of the three dialogs, in their order. The text of the first that fails, or
// nullopt when all pass (the dialog may close).
std::optional<QString> CheckPasswordSet(const QString& password, const QString& repeat);
std::optional<QString> CheckPasswordInput(const QString& password);
std::optional<QString> CheckChangePassword(const QString& oldPassword, const QString& newPassword,
                                           const QString& repeat);

// Fills the 8-byte frame: station, 0x06, 0x0D, 0x07, value high, value low, CRC low, CRC high.
void BuildPasswordFrame(int station, int value, unsigned char* frame);

// The two commands of the password menu. Set sets a first password or changes the one the
// drive has; Clear unlocks a locked drive. Every outcome but success is told by message.
void RunPasswordSet(SessionState& session, ITransferWindows& windows);
void RunPasswordClear(SessionState& session, ITransferWindows& windows);

}  // namespace quillon
