#include "link/ModbusFrame.h"

#include <algorithm>

namespace quillon {

std::uint16_t ModbusCrc16(unsigned long length, const unsigned char* data)
{
    std::uint16_t crc = 0xFFFF;
    for (unsigned long i = 0; i < length; ++i) {
        crc ^= data[i];
        for (int bit = 0; bit < 8; ++bit) {
            if (crc & 1)
                crc = static_cast<std::uint16_t>((crc >> 1) ^ 0xA001);
            else
                crc = static_cast<std::uint16_t>(crc >> 1);
        }
    }
    return crc;
}

int CheckFrameCrc(const unsigned char* data, unsigned long length)
{
    if (length < 2)
        return 0;
    const std::uint16_t crc = ModbusCrc16(length - 2, data);
    return (data[length - 2] == (crc & 0xFF) && data[length - 1] == (crc >> 8)) ? 1 : 0;
}

void AppendCrc(unsigned char* frame, int length)
{
    const std::uint16_t crc = ModbusCrc16(static_cast<unsigned long>(length), frame);
    frame[length] = static_cast<unsigned char>(crc & 0xFF);
    frame[length + 1] = static_cast<unsigned char>(crc >> 8);
}

namespace {

// Station, function and register address: the head all three requests share.
void PutHead(std::span<unsigned char> frame, int station, unsigned char function,
             std::uint16_t reg)
{
    std::fill(frame.begin(), frame.end(), 0);
    frame[0] = static_cast<unsigned char>(station);
    frame[1] = function;
    frame[2] = static_cast<unsigned char>(reg >> 8);
    frame[3] = static_cast<unsigned char>(reg & 0xFF);
}

}  // namespace

int BuildReadFrame(std::span<unsigned char> frame, int station, std::uint16_t reg, int count)
{
    if (frame.size() < kRequestLength || count < 1 || count > kMaxRegistersPerFrame)
        return 0;
    PutHead(frame, station, ModbusFn::ReadHolding, reg);
    frame[4] = 0;
    frame[5] = static_cast<unsigned char>(count);
    AppendCrc(frame.data(), 6);
    return kRequestLength;
}

int BuildWriteSingleFrame(std::span<unsigned char> frame, int station, std::uint16_t reg,
                          std::uint16_t value)
{
    if (frame.size() < kRequestLength)
        return 0;
    PutHead(frame, station, ModbusFn::WriteSingle, reg);
    frame[4] = static_cast<unsigned char>(value >> 8);
    frame[5] = static_cast<unsigned char>(value & 0xFF);
    AppendCrc(frame.data(), 6);
    return kRequestLength;
}

int BuildWriteMultipleFrame(std::span<unsigned char> frame, int station, std::uint16_t reg,
                            std::span<const std::uint16_t> values)
{
    const int count = static_cast<int>(values.size());
    if (count < 1 || count > kMaxRegistersPerFrame ||
        frame.size() < static_cast<std::size_t>(WriteMultipleLength(count)))
        return 0;
    PutHead(frame, station, ModbusFn::WriteMultiple, reg);
    frame[4] = 0;
    frame[5] = static_cast<unsigned char>(count);
    frame[6] = static_cast<unsigned char>(2 * count);
    for (int i = 0; i < count; ++i) {
        frame[7 + 2 * i] = static_cast<unsigned char>(values[i] >> 8);
        frame[8 + 2 * i] = static_cast<unsigned char>(values[i] & 0xFF);
    }
    AppendCrc(frame.data(), 7 + 2 * count);
    return WriteMultipleLength(count);
}

}  // namespace quillon
