#pragma once
// What the status monitor shows of a drive, from the registers it polls: the lamps of the status
// word and of the terminal word, the five measured values with their formats, and the fault's
// texts. The pictures, the command-line tool and the tests all take these facts from here.

#include <QString>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace quillon {

// The status page reads eight registers from RegStatusWord in one frame.
inline constexpr int kStatusPollCount = 8;
namespace StatusWordIndex {
inline constexpr int Status = 0;
inline constexpr int Fault = 1;
inline constexpr int FirstValue = 3;  // RegMonitorBlock
}  // namespace StatusWordIndex

struct MeasuredValue {
    const char* name;  // as the command-line tool prints it
    int index;         // in the eight registers of the status frame
    double scale;      // register unit
    int decimals;      // 0: printed as a whole number
    int x, y;          // where the status page draws it
};

// Set frequency, output frequency, output voltage, DC voltage, output current, in that order.
std::span<const MeasuredValue> MeasuredValues();
// "%.2f" of raw times 0.01 and so on; "%d" for the DC voltage.
QString ValueText(const MeasuredValue& value, std::uint16_t raw);

enum class LampColour { Green, Red, Orange };

struct Lamp {
    LampColour colour;
    int x, y;  // top left corner of its 22 by 22 pixels
};
inline constexpr int kLampSize = 22;

// The lamps of the status page that `statusWord` lights: ready, abnormal and the fault lamp
// (which follows the abnormal bit alone), stop or run, forward or reverse.
std::vector<Lamp> StatusLamps(std::uint16_t statusWord);

// One terminal lamp: its bit in RegTerminalWord and its place.
struct Terminal {
    const char* name;
    int bit;
    int x;
};
inline constexpr int kTerminalLampY = 320;
// Relay output R1, digital inputs 1 to 4, left to right.
std::span<const Terminal> Terminals();
std::vector<Lamp> TerminalLamps(std::uint16_t terminalWord);

// The fault code's short and long texts; a code the table lacks gives two empty texts.
struct FaultTexts {
    QString display;
    QString description;
};
FaultTexts FaultTextsOf(std::uint32_t code);

}  // namespace quillon
