#include "sim/SimBus.h"

#include "link/ModbusFrame.h"
#include "link/Registers.h"
#include "sim/FactoryImage.h"

#include <algorithm>
#include <stdexcept>

namespace quillon::sim {

namespace {

constexpr std::uint16_t kCommStation = 0x0900;
constexpr std::uint16_t kCommBaud = 0x0902;
constexpr std::uint16_t kCommStop = 0x0903;
constexpr std::uint16_t kCommParity = 0x0904;

std::uint16_t BaudIndex(int baud)
{
    for (std::uint16_t i = 0; i < std::size(kBaudRates); ++i) {
        if (kBaudRates[i] == baud)
            return i;
    }
    return 2;
}

std::vector<unsigned char> Exception(int station, unsigned char function, unsigned char code)
{
    std::vector<unsigned char> r{static_cast<unsigned char>(station),
                                 static_cast<unsigned char>(function | 0x80), code, 0, 0};
    AppendCrc(r.data(), 3);
    return r;
}

void PutWord(std::vector<unsigned char>& out, std::uint16_t v)
{
    out.push_back(static_cast<unsigned char>(v >> 8));
    out.push_back(static_cast<unsigned char>(v & 0xFF));
}

void CloseFrame(std::vector<unsigned char>& out)
{
    const auto n = out.size();
    out.resize(n + 2);
    AppendCrc(out.data(), static_cast<int>(n));
}

}  // namespace

LineSettings LineFromRegisters(std::uint16_t baudIndex, std::uint16_t stopIndex,
                               std::uint16_t parityIndex)
{
    LineSettings line;
    line.m_nBaud = kBaudRates[std::min<std::size_t>(baudIndex, std::size(kBaudRates) - 1)];
    line.m_nDataBits = 8;
    line.m_nStopBits = stopIndex == 1 ? 2 : 1;
    line.m_parity = parityIndex == 1 ? Parity::Even : parityIndex == 2 ? Parity::Odd : Parity::None;
    return line;
}

SimTime ScheduledReply::Due(std::size_t i) const
{
    return start + std::chrono::duration_cast<SimClock::duration>(
                       std::chrono::duration<double>(charSeconds * static_cast<double>(i + 1)));
}

SimBus::SimBus(const BusSetup& setup, Clock clock) : m_setup(setup), m_clock(std::move(clock))
{
    if (m_setup.stations.empty())
        throw std::runtime_error("a bus needs at least one station");
    const SimTime now = m_clock();
    std::map<int, RegisterImage> images;  // one catalogue pass per model
    for (const StationSetup& s : m_setup.stations) {
        if (s.address < 1 || s.address > 247)
            throw std::runtime_error("station numbers run from 1 to 247");
        if (std::any_of(m_drives.begin(), m_drives.end(),
                        [&](const auto& d) { return d->Address() == s.address; }))
            throw std::runtime_error("station " + std::to_string(s.address) + " is given twice");
        auto it = images.find(s.modelCode);
        if (it == images.end())
            it = images.emplace(s.modelCode, FactoryImage(s.modelCode, m_setup.freqClass,
                                                          m_setup.dataDir)).first;
        RegisterImage image = it->second;
        image.values[kCommStation] = static_cast<std::uint16_t>(s.address);
        if (m_setup.version >= 0)
            image.values[RegSoftwareVersion] = static_cast<std::uint16_t>(m_setup.version);
        m_drives.push_back(std::make_unique<SimDrive>(s.address, s.modelCode, std::move(image),
                                                      m_setup.modelWord, now));
        m_drives.back()->SetFault(m_setup.faultCode);
        m_drives.back()->SetTerminals(m_setup.terminals);
        if (s.silentAfter > 0)
            m_silentAfter[m_drives.back().get()] = s.silentAfter;
    }
    // The line: what was asked for, the rest as the first drive is set; every drive then holds
    // the line's settings in 09-02..09-04.
    const SimDrive& first = *m_drives.front();
    m_line = LineFromRegisters(first.Stored(kCommBaud), first.Stored(kCommStop),
                               first.Stored(kCommParity));
    const LineChoice& c = m_setup.line;
    m_line.m_nBaud = c.baud.value_or(m_line.m_nBaud);
    m_line.m_nDataBits = c.dataBits.value_or(m_line.m_nDataBits);
    m_line.m_parity = c.parity.value_or(m_line.m_parity);
    m_line.m_nStopBits = c.stopBits.value_or(m_line.m_nStopBits);
    if (!IsSupportedLine(m_line) || !IsDriveBaudRate(m_line.m_nBaud))
        throw std::runtime_error("a drive offers 4800, 9600, 19200 or 38400 baud, 7 or 8 data "
                                 "bits and 1 or 2 stop bits");
    const std::uint16_t parityIndex = m_line.m_parity == Parity::Even  ? 1
                                      : m_line.m_parity == Parity::Odd ? 2
                                                                       : 0;
    for (auto& d : m_drives) {
        for (const auto& [reg, value] :
             {std::pair{kCommBaud, BaudIndex(m_line.m_nBaud)},
              std::pair{kCommStop, static_cast<std::uint16_t>(m_line.m_nStopBits == 2 ? 1 : 0)},
              std::pair{kCommParity, parityIndex}}) {
            const std::uint16_t v = value;
            d->Write(reg, std::span(&v, 1), now);
        }
        d->TakeCommChange();
    }
}

LineSettings SimBus::Line() const
{
    std::lock_guard lock(m_mutex);
    return m_line;
}

WireTiming SimBus::Timing() const
{
    std::lock_guard lock(m_mutex);
    return WireTiming{m_line.m_nBaud, m_setup.turnaroundMs};
}

int SimBus::LineGeneration() const
{
    std::lock_guard lock(m_mutex);
    return m_nLineGeneration;
}

int SimBus::FramesReceived() const
{
    std::lock_guard lock(m_mutex);
    return m_nFrames;
}

bool SimBus::WithStation(int address, const std::function<void(SimDrive&)>& f)
{
    std::lock_guard lock(m_mutex);
    SimDrive* d = Find(address);
    if (!d)
        return false;
    f(*d);
    return true;
}

bool SimBus::SetSilent(int address, bool silent)
{
    std::lock_guard lock(m_mutex);
    SimDrive* d = Find(address);
    if (!d)
        return false;
    if (silent)
        m_silenced.insert(d);
    else
        m_silenced.erase(d);
    return true;
}

bool SimBus::Silent(SimDrive* drive)
{
    if (m_silenced.count(drive))
        return true;
    const auto own = m_silentAfter.find(drive);
    const int limit = own != m_silentAfter.end() ? own->second : m_setup.faults.silentAfter;
    return limit > 0 && ++m_framesPerDrive[drive] > limit;
}

SimDrive* SimBus::Find(int address)
{
    for (auto& d : m_drives) {
        if (d->Address() == address)
            return d.get();
    }
    return nullptr;
}

std::vector<unsigned char> SimBus::Answer(SimDrive& drive, std::span<const unsigned char> frame,
                                          SimTime now)
{
    const int station = frame[0];
    const unsigned char fn = frame[1];
    const std::size_t size = frame.size();
    const std::uint16_t reg = FrameWord(frame.data(), 2);
    std::vector<unsigned char> out{frame[0], fn};
    switch (fn) {
    case ModbusFn::ReadHolding: {
        const int count = FrameWord(frame.data(), 4);
        if (size != kRequestLength || count < 1 || count > kMaxReadCount)
            return Exception(station, fn, DriveException::DataAmount);
        std::vector<std::uint16_t> values;
        if (const unsigned char code = drive.Read(reg, count, values, now))
            return Exception(station, fn, code);
        out.push_back(static_cast<unsigned char>(2 * count));
        for (std::uint16_t v : values)
            PutWord(out, v);
        break;
    }
    case ModbusFn::WriteSingle: {
        if (size != kRequestLength)
            return Exception(station, fn, DriveException::DataAmount);
        const std::uint16_t value = FrameWord(frame.data(), 4);
        if (const unsigned char code = drive.Write(reg, std::span(&value, 1), now))
            return Exception(station, fn, code);
        out.assign(frame.begin(), frame.begin() + 6);  // the echo of the request
        break;
    }
    case ModbusFn::WriteMultiple: {
        const int count = size >= 7 ? FrameWord(frame.data(), 4) : 0;
        const int bytes = size >= 7 ? frame[6] : -1;
        if (count < 1 || count > kMaxReadCount || bytes != 2 * count ||
            size != static_cast<std::size_t>(WriteMultipleLength(count)))
            return Exception(station, fn, DriveException::DataAmount);
        std::vector<std::uint16_t> values;
        for (int i = 0; i < count; ++i)
            values.push_back(FrameWord(frame.data(), 7 + 2 * i));
        if (const unsigned char code = drive.Write(reg, values, now))
            return Exception(station, fn, code);
        PutWord(out, reg);
        PutWord(out, static_cast<std::uint16_t>(count));
        break;
    }
    default:
        return Exception(station, fn, DriveException::FunctionCode);
    }
    CloseFrame(out);
    return out;
}

void SimBus::FollowCommChange(SimDrive& drive)
{
    if (!drive.TakeCommChange())
        return;
    const int address = drive.Stored(kCommStation);
    if (address != drive.Address() && Find(address) == nullptr)
        drive.SetAddress(address);
    LineSettings line = LineFromRegisters(drive.Stored(kCommBaud), drive.Stored(kCommStop),
                                          drive.Stored(kCommParity));
    line.m_nDataBits = m_line.m_nDataBits;
    if (line.m_nBaud != m_line.m_nBaud || line.m_nStopBits != m_line.m_nStopBits ||
        line.m_parity != m_line.m_parity) {
        m_line = line;
        ++m_nLineGeneration;
    }
}

void SimBus::InjectFaults(std::vector<unsigned char>& reply, bool& send)
{
    const FaultOptions& f = m_setup.faults;
    const int n = ++m_nReplies;
    const auto every = [n](int period) { return period > 0 && n % period == 0; };
    if (every(f.dropEvery)) {
        send = false;
        return;
    }
    if (every(f.badCrcEvery))
        reply.back() ^= 0xFF;
    if (every(f.truncateEvery))
        reply.resize(reply.size() / 2);
}

std::optional<ScheduledReply> SimBus::Handle(std::span<const unsigned char> frame,
                                             SimTime firstByte)
{
    if (frame.size() < 4 || !CheckFrameCrc(frame.data(), frame.size()))
        return std::nullopt;  // noise or a damaged request: a drive keeps quiet
    std::lock_guard lock(m_mutex);
    ++m_nFrames;
    const SimTime now = m_clock();
    const int station = frame[0];
    // The reply leaves on the line the request came in on, before any change of settings.
    const WireTiming timing{m_line.m_nBaud, m_setup.turnaroundMs};

    if (station == kBroadcastStation) {
        if (frame[1] == ModbusFn::WriteSingle || frame[1] == ModbusFn::WriteMultiple) {
            for (auto& d : m_drives) {
                Answer(*d, frame, now);
                FollowCommChange(*d);
            }
        }
        return std::nullopt;
    }
    SimDrive* drive = Find(station);
    if (!drive)
        return std::nullopt;
    if (Silent(drive))
        return std::nullopt;

    ScheduledReply reply;
    reply.bytes = Answer(*drive, frame, now);
    FollowCommChange(*drive);
    bool send = true;
    InjectFaults(reply.bytes, send);
    if (!send)
        return std::nullopt;

    const auto extra = std::chrono::milliseconds(m_setup.faults.extraDelayMs);
    if (m_setup.wireTiming) {
        reply.charSeconds = timing.CharSeconds();
        reply.start = firstByte + extra +
                      std::chrono::duration_cast<SimClock::duration>(std::chrono::duration<double>(
                          timing.ReplyStartSeconds(static_cast<int>(frame.size()))));
    } else {
        reply.start = std::max(firstByte, SimClock::now()) + extra;
    }
    return reply;
}

}  // namespace quillon::sim
