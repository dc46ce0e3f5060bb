#pragma once
// One place that turns a transaction's result and reply into what the caller reports.
//
// Every routine that talks to a drive walks the same steps: result 0 and the function byte it
// sent means success; result 0 and another function byte is the drive's exception reply, whose
// byte at offset 2 names the reason; any other result is a transport failure. What the person
// then sees differs by caller, and the differences are deliberate (a page write prefixes the
// station, the password reader has one word for everything, polling stops silently...).
// JudgeReply holds that table, so callers never spell it out again.

#include "link/LinkResult.h"

#include <QString>

namespace quillon {

enum class ReplyCaller {
    GroupRead,       // group read routines: the word, left for the command to show
    GroupWrite,      // group write routines: "Station Num %d:write parameter group %d <word>"
    Identification,  // capacity, version and model-word readers
    RunStatus,       // the run status reader
    RunSourceAtConnect,  // 00-02 at connect: "Communication error!" for everything
    TakeOverIdentification,  // capacity and version when a link is taken over: the same
    PasswordState,   // lock state reader: "Read parameter password error!" for everything
    PageAccess,      // single-parameter reads and writes of the editing pages
    Polling,         // status, terminal and graph polling: stop silently on transport faults
    ControlPanel,    // the control panel's poll and commands: the run status reader's words
};

struct ReplyVerdict {
    bool ok = false;  // the reply carries the function byte that was sent
    QString text;     // what to report; empty when nothing is to be shown
    bool exception = false;  // result 0 with another function byte
};

// `reply` is the receive buffer of the transaction (at least 3 bytes, zero-filled before the
// call); `sentFunction` the request's function byte. `station` and `group` fill the texts of
// the callers that name them.
ReplyVerdict JudgeReply(ReplyCaller caller, int result, const unsigned char* reply,
                        unsigned char sentFunction, int station = 0, int group = 0);

// Shows the verdict's text in a message box when there is one.
void ShowVerdict(const ReplyVerdict& verdict);

}  // namespace quillon
