#pragma once
// The runner of the monitoring windows on the desktop: the link work of each job runs on one
// thread of the runner's own, in the order given, and its completion is posted back to the
// thread that created the runner (the interface thread), where the window's state lives.
//
// The link's mutex keeps these exchanges apart from every other user of the link (auto refresh,
// the link watch, another window), so no frames interleave. Destruction drops the jobs not yet
// started, waits for the one under way (at most its exchanges' time-outs) and drops every
// completion not yet delivered.

#include "monitor/LinkExchange.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>

class QObject;

namespace quillon {

class CWorkerRunner final : public IExchangeRunner {
public:
    explicit CWorkerRunner(std::function<CDriveSerial*()> link);
    ~CWorkerRunner() override;
    CWorkerRunner(const CWorkerRunner&) = delete;
    CWorkerRunner& operator=(const CWorkerRunner&) = delete;

    // The link is looked up here, on the caller's thread.
    void Run(LinkWork work, LinkDone done) override;

private:
    struct Job {
        CDriveSerial* link;
        LinkWork work;
        LinkDone done;
    };
    void Loop();

    std::function<CDriveSerial*()> m_link;
    std::unique_ptr<QObject> m_context;  // completions are delivered through it
    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::deque<Job> m_jobs;
    bool m_bQuit = false;
    std::thread m_thread;
};

}  // namespace quillon
