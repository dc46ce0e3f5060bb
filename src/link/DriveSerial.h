#pragma once
// CDriveSerial: the program's link to its drives, the one object all drive traffic passes
// through. It adds to CSerial the guard on over-long reads, the search for network modules and
// SendFrame, the paced form of CommandSend used by everything that runs from a click or a timer.

#include "link/DeviceRecord.h"
#include "link/Serial.h"

#include <vector>

namespace quillon {

// A read request of this many bytes or more is refused: no frame of the program comes near
// it (the longest reply is 51 bytes), so such a request means a broken caller.
inline constexpr unsigned long kReadGuardLimit = 161;
// SendFrame's pause before the transaction.
inline constexpr int kSendFramePauseMs = 10;

class CDriveSerial : public CSerial {
public:
    CDriveSerial() = default;
    ~CDriveSerial() override = default;

    // Fewer than kReadGuardLimit bytes: the normal read. More: nothing is read, the input
    // waiting on the line is thrown away, and 0 is returned.
    long Read(unsigned char* buffer, unsigned long length, unsigned long* readCount,
              unsigned long timeoutMs) override;

    int CheckFrameCrc(const unsigned char* data, unsigned long length) override;

    // The search for network modules (DeviceSearch.h): clears `list` and fills it. Works with
    // the link closed; takes at least the search's time-out.
    virtual void DiscoverDevices(std::vector<DeviceRecord>& list);

    // Sleeps kSendFramePauseMs, then CommandSend with the same arguments.
    ErrType SendFrame(const unsigned char* tx, unsigned long txLength, unsigned char* rx,
                      unsigned long rxLength);
};

}  // namespace quillon
