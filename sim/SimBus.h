#pragma once
// A simulated bus of R770 drives: one or more stations on one line, answering Modbus RTU
// request frames as the drives do, with optional wire timing and fault injection. The bus is
// transport-free: the pseudo-terminal and TCP servers (StreamServer.h) and the in-process
// channel (SimChannel.h) hand it whole request frames and send what it returns.
//
// Frames with a bad CRC are ignored, as on a real line. Station 0 is the broadcast: writes are
// taken by every station and never answered. Read counts above kMaxReadCount, a byte count
// that doesn't match, or a frame of the wrong length give 'S'; a function other than 0x03,
// 0x06 and 0x10 gives 'Q'. A write to 09-00..09-04 takes effect after the reply: the station
// answers under its new number, and the line runs at the new baud rate, stop bits and parity.
//
// Thread-safe: every call takes the bus's lock.

#include "link/LineSettings.h"
#include "sim/SimDrive.h"
#include "sim/WireTiming.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <span>
#include <vector>

namespace quillon::sim {

inline constexpr int kMaxReadCount = 32;
inline constexpr std::uint16_t kDefaultModelWord = 0x0100;

struct StationSetup {
    int address = 1;
    int modelCode = 1205;
    int silentAfter = 0;  // this station answers its first N frames, then nothing; 0: never
};

// Faults the bus injects into its replies. "Every Nth" counts the replies of the whole bus,
// starting at the first; 0 switches a fault off.
struct FaultOptions {
    int badCrcEvery = 0;    // the reply's CRC is broken
    int dropEvery = 0;      // the reply is not sent
    int truncateEvery = 0;  // only the first half of the reply is sent
    int extraDelayMs = 0;   // every reply comes this much later
    int silentAfter = 0;    // each station answers its first N frames, then nothing more
};

// Line settings given on the command line; what is left open comes from the first station's
// 09-02..09-04 as the catalogue sets them.
struct LineChoice {
    std::optional<int> baud;
    std::optional<int> dataBits;
    std::optional<Parity> parity;
    std::optional<int> stopBits;
};

struct BusSetup {
    std::vector<StationSetup> stations{StationSetup{}};
    LineChoice line;
    bool wireTiming = false;           // pace replies as the line would
    double turnaroundMs = kDefaultTurnaroundMs;
    FaultOptions faults;
    std::uint16_t modelWord = kDefaultModelWord;  // what 0x252F reads
    int version = -1;   // 13-01 in thousandths; -1 keeps the catalogue's
    int freqClass = 0;  // 0 = 50 Hz, 1 = 60 Hz defaults
    std::uint16_t faultCode = 0;  // every station starts tripped with this fault; 0: none
    std::uint16_t terminals = 0;  // what RegTerminalWord reads on every station
    QString dataDir;    // where the catalogue files are
};

// A reply and when each of its bytes is on the line. Byte i is due at
// start + (i + 1) * charSeconds; with charSeconds 0 all bytes are due at `start`.
struct ScheduledReply {
    std::vector<unsigned char> bytes;
    SimTime start;
    double charSeconds = 0.0;

    SimTime Due(std::size_t i) const;
};

class SimBus {
public:
    using Clock = std::function<SimTime()>;

    // Builds the stations from the catalogue files (FactoryImage.h); throws std::runtime_error
    // when they can't be read. `clock` is the time of the drives' ramps.
    explicit SimBus(const BusSetup& setup, Clock clock = &SimClock::now);

    // One request frame whose first byte arrived at `firstByte`: the reply to send, if any.
    std::optional<ScheduledReply> Handle(std::span<const unsigned char> frame, SimTime firstByte);

    LineSettings Line() const;
    WireTiming Timing() const;
    bool WireTimed() const { return m_setup.wireTiming; }
    // Grows by one whenever a station changed the line settings.
    int LineGeneration() const;
    // Frames with a good CRC seen so far, broadcasts included.
    int FramesReceived() const;

    // Runs `f(SimDrive&)` under the bus lock for the station now at `address`; false when
    // there is none.
    bool WithStation(int address, const std::function<void(SimDrive&)>& f);

    // A station that stops answering (cable cut, power lost) or answers again; false when there
    // is none at `address`.
    bool SetSilent(int address, bool silent);

private:
    SimDrive* Find(int address);
    // Whether `drive` keeps this frame unanswered; counts the frame against its limit.
    bool Silent(SimDrive* drive);
    std::vector<unsigned char> Answer(SimDrive& drive, std::span<const unsigned char> frame,
                                      SimTime now);
    void FollowCommChange(SimDrive& drive);
    void InjectFaults(std::vector<unsigned char>& reply, bool& send);

    mutable std::mutex m_mutex;
    BusSetup m_setup;
    Clock m_clock;
    std::vector<std::unique_ptr<SimDrive>> m_drives;
    std::map<SimDrive*, int> m_framesPerDrive;
    std::map<SimDrive*, int> m_silentAfter;  // per-station limits
    std::set<SimDrive*> m_silenced;
    LineSettings m_line;
    int m_nLineGeneration = 0;
    int m_nFrames = 0;
    int m_nReplies = 0;
};

// Line settings from a station's 09-02 (baud index), 09-03 (stop index), 09-04 (parity index:
// 0 none, 1 even, 2 odd); 8 data bits.
LineSettings LineFromRegisters(std::uint16_t baudIndex, std::uint16_t stopIndex,
                               std::uint16_t parityIndex);

}  // namespace quillon::sim
