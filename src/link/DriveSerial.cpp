#include "link/DriveSerial.h"

#include "link/DeviceSearch.h"

#include <chrono>
#include <thread>

namespace quillon {

long CDriveSerial::Read(unsigned char* buffer, unsigned long length, unsigned long* readCount,
                        unsigned long timeoutMs)
{
    if (length < kReadGuardLimit)
        return CSerial::Read(buffer, length, readCount, timeoutMs);
    if (readCount)
        *readCount = 0;
    PurgeInput();
    return 0;
}

int CDriveSerial::CheckFrameCrc(const unsigned char* data, unsigned long length)
{
    return quillon::CheckFrameCrc(data, length);
}

void CDriveSerial::DiscoverDevices(std::vector<DeviceRecord>& list)
{
    SearchModules(list);
}

ErrType CDriveSerial::SendFrame(const unsigned char* tx, unsigned long txLength, unsigned char* rx,
                                unsigned long rxLength)
{
    // The pause comes first, also before the first frame: a drive that has just answered
    // another frame gets its rest before the next one.
    std::this_thread::sleep_for(std::chrono::milliseconds(kSendFramePauseMs));
    return CommandSend(tx, txLength, rx, rxLength);
}

}  // namespace quillon
