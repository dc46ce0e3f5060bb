#pragma once
// The drive's registers with a role beyond being a parameter. Parameter gg-nn (group and
// number as shown, both decimal) lives at gg * 256 + nn; the simplified group Fxx is group 14.
// The control and status block starts at 0x2500.

#include <cstdint>

namespace quillon {

inline constexpr std::uint16_t RegRunSource = 0x0002;          // 00-02
inline constexpr std::uint16_t RegUpperLimit = 0x000C;         // 00-12, 0.01 Hz
inline constexpr std::uint16_t RegLowerLimit = 0x000D;         // 00-13, 0.01 Hz
inline constexpr std::uint16_t RegCommBlock = 0x0900;          // 09-00..09-05
inline constexpr std::uint16_t RegCapacityCode = 0x0D00;       // 13-00: the model code
inline constexpr std::uint16_t RegSoftwareVersion = 0x0D01;    // 13-01: thousandths
inline constexpr std::uint16_t RegParameterPassword = 0x0D07;  // 13-07

inline constexpr std::uint16_t RegControlWord = 0x2501;
inline constexpr std::uint16_t RegFrequencyCommand = 0x2502;   // 0.01 Hz
inline constexpr std::uint16_t RegStatusWord = 0x2520;
inline constexpr std::uint16_t RegFaultCode = 0x2521;
inline constexpr std::uint16_t RegTerminalWord = 0x2522;
inline constexpr std::uint16_t RegMonitorBlock = 0x2523;       // 16 registers to 0x2532
inline constexpr std::uint16_t RegModelWord = 0x252F;

// Offsets in the monitor block.
namespace Monitor {
inline constexpr int SetFrequency = 0;      // 0.01 Hz
inline constexpr int OutputFrequency = 1;   // 0.01 Hz
inline constexpr int OutputVoltage = 2;     // 0.1 V
inline constexpr int DcVoltage = 3;         // V
inline constexpr int OutputCurrent = 4;     // 0.1 A
inline constexpr int AciInput = 6;
inline constexpr int PidFeedback = 7;
inline constexpr int PidInput = 8;          // 0.1 %
inline constexpr int AviInput = 9;          // 0.01 V
inline constexpr int Temperature = 14;      // 0.1 degree C
inline constexpr int Load = 15;             // %
inline constexpr int Count = 16;
}  // namespace Monitor

// Bits of RegControlWord.
namespace ControlBit {
inline constexpr std::uint16_t Run = 0x0001;
inline constexpr std::uint16_t Reverse = 0x0002;
inline constexpr std::uint16_t ExternalFault = 0x0004;
inline constexpr std::uint16_t FaultReset = 0x0008;
inline constexpr std::uint16_t JogForward = 0x0010;
inline constexpr std::uint16_t JogReverse = 0x0020;
}  // namespace ControlBit

// Bits of RegStatusWord.
namespace StatusBit {
inline constexpr std::uint16_t Running = 0x0001;
inline constexpr std::uint16_t Reverse = 0x0002;
inline constexpr std::uint16_t Ready = 0x0004;
inline constexpr std::uint16_t Abnormal = 0x0008;
}  // namespace StatusBit

// Lock states RegParameterPassword reads as; only Locked means a password is set.
namespace PasswordState {
inline constexpr std::uint16_t None = 0;
inline constexpr std::uint16_t Unlocked = 1;
inline constexpr std::uint16_t Locked = 2;
}  // namespace PasswordState

// The drive's exception bytes.
namespace DriveException {
inline constexpr unsigned char FunctionCode = 'Q';
inline constexpr unsigned char Address = 'R';
inline constexpr unsigned char DataAmount = 'S';
inline constexpr unsigned char OverRange = 'T';
}  // namespace DriveException

}  // namespace quillon
