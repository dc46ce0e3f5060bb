#pragma once
// One simulated R770 drive: its parameter registers, the control and status block, the
// identification registers and the parameter password, as a Modbus slave sees them.
//
// The drive runs: a run command ramps the output frequency toward the frequency command
// (clamped to 00-12/00-13) with the acceleration and deceleration times 00-14/00-15, measured
// from zero to the maximum output frequency 01-02; a jog runs at 00-18 with 00-19/00-20.
// Voltage follows the V/f line up to 01-01, current lies between the motor's no-load (02-00)
// and rated (02-01) current, and the DC bus shows the mains of the model's voltage class. The
// "external fault" and "fault reset" bits of the control word are commands the drive takes
// and clears: the first trips it (fault 14, output off, run command dropped), the second
// clears the fault.
//
// Password: the lock register reads 0 (no password), 1 (password set, unlocked) or 2 (locked).
// While not locked, the same value written twice in a row becomes the password and locks the
// drive; while locked, writing the password unlocks it and any other value changes nothing.
// A locked drive refuses writes to parameters with exception 'R'.

#include <QtGlobal>
#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <vector>

namespace quillon::sim {

using SimClock = std::chrono::steady_clock;
using SimTime = SimClock::time_point;

// Register values of a factory-fresh drive; the keys are the parameter registers it serves.
struct RegisterImage {
    std::map<std::uint16_t, std::uint16_t> values;
};

// Fault code shown after the external fault bit.
inline constexpr std::uint16_t kExternalFaultCode = 14;
// The highest frequency command taken, 0.01 Hz.
inline constexpr std::uint16_t kMaxFrequencyCommand = 59900;

class SimDrive {
public:
    SimDrive(int address, int modelCode, RegisterImage factory, std::uint16_t modelWord,
             SimTime now);

    int Address() const { return m_nAddress; }
    void SetAddress(int address) { m_nAddress = address; }
    int ModelCode() const { return m_nModelCode; }

    // Register access as a Modbus slave serves it: 0 on success, else the exception byte.
    // A write is all or nothing: one refused value refuses the frame.
    unsigned char Read(std::uint16_t start, int count, std::vector<std::uint16_t>& out,
                       SimTime now);
    unsigned char Write(std::uint16_t start, std::span<const std::uint16_t> values, SimTime now);

    bool Serves(std::uint16_t reg) const;
    // The stored value of a parameter register (no live values), for inspection.
    std::uint16_t Stored(std::uint16_t reg) const;
    std::uint16_t LockState() const { return m_nLockState; }
    // True once after a write that changed the communication registers 09-00..09-04.
    bool TakeCommChange();
    // A fault the drive trips with (0: none; fault reset clears it), and the state of its
    // terminals: bits 0..3 digital inputs 1..4, bit 6 relay output R1.
    void SetFault(std::uint16_t code) { m_nFault = code; }
    void SetTerminals(std::uint16_t word) { m_nTerminals = word; }

private:
    void Advance(SimTime now);
    void Step(double seconds);
    std::uint16_t Value(std::uint16_t reg) const;
    unsigned char CheckWrite(std::uint16_t reg, std::uint16_t value) const;
    void Store(std::uint16_t reg, std::uint16_t value);
    void WriteControl(std::uint16_t word);
    void WritePassword(std::uint16_t value);
    double FrequencyBase() const;  // 01-02, 0.01 Hz
    double RatedVoltage() const;   // mains of the voltage class, V

    int m_nAddress;
    int m_nModelCode;
    std::map<std::uint16_t, std::uint16_t> m_regs;
    std::uint16_t m_nModelWord;
    std::uint16_t m_nControl = 0;
    std::uint16_t m_nFrequencyCommand = 0;
    std::uint16_t m_nFault = 0;
    std::uint16_t m_nTerminals = 0;
    double m_dOutput = 0.0;  // 0.01 Hz
    bool m_bReverse = false;
    SimTime m_lastStep;
    std::uint16_t m_nLockState = 0;
    std::uint16_t m_nPassword = 0;
    std::optional<std::uint16_t> m_pendingPassword;
    bool m_bCommChanged = false;
};

}  // namespace quillon::sim
