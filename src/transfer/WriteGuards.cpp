#include "transfer/WriteGuards.h"

#include "base/Prompt.h"
#include "link/RegisterReaders.h"

namespace quillon {

bool PassWriteGuards(CDriveSerial& link, int station, const TransactionRunner& run) {
    int locked = 0;
    if (!run([&] { return ReadPasswordState(link, station, locked) != 0; })) return false;
    if (locked) {
        Prompt().Message(QString::fromLatin1(kDriveLockedText).arg(station));
        return false;
    }
    int running = 0;
    if (!run([&] { return ReadRunStatus(link, station, running) != 0; })) return false;
    if (running) {
        Prompt().Message(QString::fromLatin1(kDriveRunningText));
        return false;
    }
    return true;
}

}  // namespace quillon
