#pragma once
// "Transmit Group" of the parameter editor: the whole group as the editor's pages hold it, to one
// station. The guards come first, each a transaction of its own (password on the drive, running
// drive, the drive's software version); then the pages' transmit step gives the value texts, and
// the group's write routine sends them. Once the transmit step has begun, the group's changed
// marks clear whatever happens: the drive may hold some of the values by then.
//
// Transactions run through `linkWork` (off the interface thread on the desktop); the project and
// the pages are touched only between them.

#include <QString>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace quillon {

class CDriveSerial;
class CM330Doc;
struct SessionState;

// The rows of the group and their value texts, as the pages' transmit step gives them.
using GroupValues = std::vector<std::pair<int, QString>>;

struct TransmitContext {
    SessionState& session;
    CM330Doc& doc;
    CDriveSerial* link = nullptr;
    std::function<void(const std::function<void()>&)> linkWork;  // runs a transaction
    float driveVersion = 0.0f;  // the drive's software version, read before the write
};

// Runs Transmit Group for `group` (0..14). `pagesStep` takes the controls and checks the pages,
// and gives the value texts, or nothing when a page refused (it has said why). True when the
// routine wrote the group ("Write successful!").
bool TransmitGroup(int group, TransmitContext& context,
                   const std::function<std::optional<GroupValues>()>& pagesStep);

}  // namespace quillon
