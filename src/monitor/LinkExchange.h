#pragma once
// One request and its reply as the monitoring windows exchange them with a drive, and the runner
// that carries their link work.
//
// A window's logic splits each of its actions in two: the link work, which only builds frames
// from values it was handed and talks to the link, and the completion, which judges the replies
// and changes the window's state. The runner decides where the link work runs. The direct runner
// runs both at once on the caller's thread (tests, the command-line tool); the worker runner
// (WorkerRunner.h) runs the link work on a thread of its own and the completion back on the
// interface thread, so that a dead line, which costs the link's full time-out per frame, never
// freezes a window.

#include "link/DriveSerial.h"
#include "link/ModbusFrame.h"
#include "link/ReplyJudge.h"

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace quillon {

struct LinkExchange {
    std::array<unsigned char, kRequestLength> tx{};
    std::vector<unsigned char> rx;  // zero-filled, as long as the expected reply
    int result = ErrComm;           // ErrComm until it has run
    bool paced = true;              // through SendFrame; false: straight to CommandSend

    bool Ran() const { return m_bRan; }
    // The register at `index` of a read reply.
    std::uint16_t Word(int index) const { return FrameWord(rx.data(), 3 + 2 * index); }
    ReplyVerdict Judge(ReplyCaller caller) const
    {
        return JudgeReply(caller, result, rx.data(), tx[1], tx[0]);
    }
    bool Ok() const { return result == ErrNone && rx[1] == tx[1]; }

    // Sends the request (through SendFrame unless not `paced`); no link gives ErrComm.
    void Run(CDriveSerial* link);

private:
    bool m_bRan = false;
};

// The station of entry `index` of a window's station list; 0 outside the list.
inline int StationAt(const std::vector<int>& stations, int index)
{
    return index >= 0 && index < static_cast<int>(stations.size()) ? stations[index] : 0;
}

// A read of `count` registers from `reg`, and a write of one register.
LinkExchange ReadExchange(int station, std::uint16_t reg, int count);
LinkExchange WriteExchange(int station, std::uint16_t reg, std::uint16_t value);

using LinkWork = std::function<void(CDriveSerial* link)>;
using LinkDone = std::function<void()>;

class IExchangeRunner {
public:
    virtual ~IExchangeRunner() = default;
    // Runs `work` with the link, then `done`. Jobs run one at a time in the order given.
    virtual void Run(LinkWork work, LinkDone done) = 0;
};

// Runs a job at once on the calling thread.
class CDirectRunner final : public IExchangeRunner {
public:
    explicit CDirectRunner(std::function<CDriveSerial*()> link) : m_link(std::move(link)) {}
    void Run(LinkWork work, LinkDone done) override
    {
        work(m_link ? m_link() : nullptr);
        done();
    }

private:
    std::function<CDriveSerial*()> m_link;
};

}  // namespace quillon
