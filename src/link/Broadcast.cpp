#include "link/Broadcast.h"

#include "link/ModbusFrame.h"
#include "link/Serial.h"

#include <array>
#include <chrono>
#include <thread>

namespace quillon {

int BroadcastWriteSingle(CSerial& link, std::uint16_t reg, std::uint16_t value)
{
    std::array<unsigned char, kRequestLength> frame{};
    BuildWriteSingleFrame(frame, kBroadcastStation, reg, value);
    link.Write(frame.data(), frame.size(), nullptr, kWriteTimeoutMs);
    std::this_thread::sleep_for(std::chrono::milliseconds(kBroadcastPauseMs));
    return 1;
}

}  // namespace quillon
