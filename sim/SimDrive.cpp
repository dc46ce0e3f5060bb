#include "sim/SimDrive.h"

#include "link/Registers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillon::sim {

namespace {

// Parameters the running drive takes its behaviour from.
constexpr std::uint16_t kInitialFrequency = 0x000B;  // 00-11, 0.01 Hz
constexpr std::uint16_t kAccelTime = 0x000E;         // 00-14, 0.1 s
constexpr std::uint16_t kDecelTime = 0x000F;         // 00-15, 0.1 s
constexpr std::uint16_t kJogFrequency = 0x0012;      // 00-18, 0.01 Hz
constexpr std::uint16_t kJogAccelTime = 0x0013;      // 00-19, 0.1 s
constexpr std::uint16_t kJogDecelTime = 0x0014;      // 00-20, 0.1 s
constexpr std::uint16_t kMaxVoltage = 0x0101;        // 01-01, 0.1 V
constexpr std::uint16_t kMaxFrequency = 0x0102;      // 01-02, 0.01 Hz
constexpr std::uint16_t kNoLoadCurrent = 0x0200;     // 02-00, 0.1 A
constexpr std::uint16_t kRatedCurrent = 0x0201;      // 02-01, 0.1 A
constexpr std::uint16_t kCommStation = 0x0900;       // 09-00
constexpr std::uint16_t kCommBaud = 0x0902;          // 09-02: 0..3
constexpr std::uint16_t kCommStop = 0x0903;          // 09-03: 0..1
constexpr std::uint16_t kCommParity = 0x0904;        // 09-04: 0..2

constexpr std::uint16_t kStatusFirst = RegStatusWord;
constexpr std::uint16_t kStatusLast = RegMonitorBlock + Monitor::Count - 1;  // 0x2532

bool IsStatusRegister(std::uint16_t reg) { return reg >= kStatusFirst && reg <= kStatusLast; }
bool IsControlRegister(std::uint16_t reg)
{
    return reg == RegControlWord || reg == RegFrequencyCommand;
}
bool IsParameter(std::uint16_t reg) { return reg < 0x2500; }

std::uint16_t ToRegister(double v)
{
    return static_cast<std::uint16_t>(std::clamp(std::lround(v), 0L, 65535L));
}

}  // namespace

SimDrive::SimDrive(int address, int modelCode, RegisterImage factory, std::uint16_t modelWord,
                   SimTime now)
    : m_nAddress(address),
      m_nModelCode(modelCode),
      m_regs(std::move(factory.values)),
      m_nModelWord(modelWord),
      m_lastStep(now)
{
    m_regs[RegCapacityCode] = static_cast<std::uint16_t>(modelCode);
    m_nFrequencyCommand = Stored(kInitialFrequency);
}

bool SimDrive::Serves(std::uint16_t reg) const
{
    return m_regs.count(reg) != 0 || IsControlRegister(reg) || IsStatusRegister(reg);
}

std::uint16_t SimDrive::Stored(std::uint16_t reg) const
{
    const auto it = m_regs.find(reg);
    return it == m_regs.end() ? 0 : it->second;
}

bool SimDrive::TakeCommChange()
{
    return std::exchange(m_bCommChanged, false);
}

double SimDrive::FrequencyBase() const
{
    const std::uint16_t f = Stored(kMaxFrequency);
    return f != 0 ? f : 5000.0;
}

double SimDrive::RatedVoltage() const
{
    // The voltage class is the first digit of the capacity code: 1205 is "2P5", 401 is "401".
    const int digit = m_nModelCode >= 1000 ? (m_nModelCode / 100) % 10 : m_nModelCode / 100;
    return digit == 4 ? 380.0 : digit == 1 ? 110.0 : 220.0;
}

void SimDrive::Advance(SimTime now)
{
    if (now <= m_lastStep)
        return;
    Step(std::chrono::duration<double>(now - m_lastStep).count());
    m_lastStep = now;
}

void SimDrive::Step(double seconds)
{
    const bool jog = (m_nControl & (ControlBit::JogForward | ControlBit::JogReverse)) != 0;
    const bool run = m_nFault == 0 && (jog || (m_nControl & ControlBit::Run));
    const bool wantReverse = jog ? (m_nControl & ControlBit::JogReverse) != 0
                                 : (m_nControl & ControlBit::Reverse) != 0;
    double target = 0.0;
    if (run && jog) {
        target = Stored(kJogFrequency);
    } else if (run) {
        const double upper = Stored(RegUpperLimit);
        target = std::max<double>(m_nFrequencyCommand, Stored(RegLowerLimit));
        if (upper > 0)
            target = std::min(target, upper);
    }
    const double base = FrequencyBase();
    // Ramp rates in 0.01 Hz per second; a time of 0 means at once.
    const auto rate = [base](std::uint16_t tenths) {
        return tenths == 0 ? HUGE_VAL : base / (tenths / 10.0);
    };
    const double up = rate(Stored(jog ? kJogAccelTime : kAccelTime));
    const double down = rate(Stored(jog ? kJogDecelTime : kDecelTime));

    // At most two legs: down to zero against the old direction, then toward the target.
    for (int leg = 0; leg < 3 && seconds > 0.0; ++leg) {
        if (m_dOutput <= 0.0 && m_bReverse != wantReverse)
            m_bReverse = wantReverse;
        const double goal = (m_bReverse != wantReverse) ? 0.0 : target;
        if (m_dOutput == goal)
            break;
        const double r = goal > m_dOutput ? up : down;
        const double need = std::abs(goal - m_dOutput) / r;
        if (need >= seconds) {
            m_dOutput += (goal > m_dOutput ? 1.0 : -1.0) * r * seconds;
            break;
        }
        m_dOutput = goal;
        seconds -= need;
    }
}

std::uint16_t SimDrive::Value(std::uint16_t reg) const
{
    if (reg == RegParameterPassword)
        return m_nLockState;
    if (reg == RegControlWord)
        return m_nControl;
    if (reg == RegFrequencyCommand)
        return m_nFrequencyCommand;
    if (!IsStatusRegister(reg))
        return Stored(reg);

    const bool running = m_dOutput > 0.0 ||
                         (m_nFault == 0 && (m_nControl & (ControlBit::Run | ControlBit::JogForward |
                                                          ControlBit::JogReverse)));
    const double share = std::min(m_dOutput / FrequencyBase(), 1.0);
    const double noLoad = Stored(kNoLoadCurrent);
    const double rated = Stored(kRatedCurrent);
    const double maxVoltage = Stored(kMaxVoltage) != 0 ? Stored(kMaxVoltage) : RatedVoltage() * 10;
    switch (reg) {
    case RegStatusWord:
        return static_cast<std::uint16_t>((running ? StatusBit::Running : 0) |
                                          (m_bReverse ? StatusBit::Reverse : 0) |
                                          (m_nFault == 0 ? StatusBit::Ready : StatusBit::Abnormal));
    case RegFaultCode:
        return m_nFault;
    case RegTerminalWord:
        return m_nTerminals;
    case RegModelWord:
        return m_nModelWord;
    default:
        break;
    }
    switch (reg - RegMonitorBlock) {
    case Monitor::SetFrequency: return m_nFrequencyCommand;
    case Monitor::OutputFrequency: return ToRegister(m_dOutput);
    case Monitor::OutputVoltage: return ToRegister(maxVoltage * share);
    case Monitor::DcVoltage: return ToRegister(RatedVoltage() * std::sqrt(2.0));
    case Monitor::OutputCurrent:
        return m_dOutput > 0.0 ? ToRegister(noLoad + (rated - noLoad) * 0.5 * share) : 0;
    case Monitor::Temperature: return ToRegister(300.0 + 100.0 * share);
    case Monitor::Load: return ToRegister(40.0 * share);
    default: return 0;
    }
}

unsigned char SimDrive::Read(std::uint16_t start, int count, std::vector<std::uint16_t>& out,
                             SimTime now)
{
    for (int i = 0; i < count; ++i) {
        if (!Serves(static_cast<std::uint16_t>(start + i)))
            return DriveException::Address;
    }
    Advance(now);
    out.clear();
    for (int i = 0; i < count; ++i)
        out.push_back(Value(static_cast<std::uint16_t>(start + i)));
    return 0;
}

unsigned char SimDrive::CheckWrite(std::uint16_t reg, std::uint16_t value) const
{
    if (!Serves(reg) || IsStatusRegister(reg) || reg == RegCapacityCode ||
        reg == RegSoftwareVersion)
        return DriveException::Address;
    if (IsParameter(reg) && reg != RegParameterPassword &&
        m_nLockState == PasswordState::Locked)
        return DriveException::Address;
    switch (reg) {
    case kCommStation: return (value >= 1 && value <= 32) ? 0 : DriveException::OverRange;
    case kCommBaud: return value <= 3 ? 0 : DriveException::OverRange;
    case kCommStop: return value <= 1 ? 0 : DriveException::OverRange;
    case kCommParity: return value <= 2 ? 0 : DriveException::OverRange;
    case RegFrequencyCommand: return value <= kMaxFrequencyCommand ? 0 : DriveException::OverRange;
    default: return 0;
    }
}

unsigned char SimDrive::Write(std::uint16_t start, std::span<const std::uint16_t> values,
                              SimTime now)
{
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (const unsigned char code = CheckWrite(static_cast<std::uint16_t>(start + i), values[i]))
            return code;
    }
    Advance(now);
    for (std::size_t i = 0; i < values.size(); ++i)
        Store(static_cast<std::uint16_t>(start + i), values[i]);
    return 0;
}

void SimDrive::Store(std::uint16_t reg, std::uint16_t value)
{
    if (reg != RegParameterPassword)
        m_pendingPassword.reset();  // the two password writes must follow each other
    switch (reg) {
    case RegParameterPassword: WritePassword(value); return;
    case RegControlWord: WriteControl(value); return;
    case RegFrequencyCommand: m_nFrequencyCommand = value; return;
    default: break;
    }
    if (reg >= kCommStation && reg <= kCommParity && Stored(reg) != value)
        m_bCommChanged = true;
    m_regs[reg] = value;
}

void SimDrive::WriteControl(std::uint16_t word)
{
    if (word & ControlBit::FaultReset)
        m_nFault = 0;
    if (word & ControlBit::ExternalFault) {
        m_nFault = kExternalFaultCode;
        m_dOutput = 0.0;  // the output switches off: the motor coasts
        word &= static_cast<std::uint16_t>(~(ControlBit::Run | ControlBit::JogForward |
                                             ControlBit::JogReverse));
    }
    m_nControl = word & static_cast<std::uint16_t>(~(ControlBit::ExternalFault |
                                                      ControlBit::FaultReset));
}

void SimDrive::WritePassword(std::uint16_t value)
{
    if (m_nLockState == PasswordState::Locked) {
        if (value == m_nPassword)
            m_nLockState = PasswordState::Unlocked;
        m_pendingPassword.reset();
        return;
    }
    if (m_pendingPassword && *m_pendingPassword == value) {
        m_nPassword = value;
        m_nLockState = PasswordState::Locked;
        m_pendingPassword.reset();
        return;
    }
    m_pendingPassword = value;
}

}  // namespace quillon::sim
