#include "monitor/WorkerRunner.h"

#include "base/ErrorReport.h"
#include "base/ThreadHandOff.h"

#include <QObject>

namespace quillon {

CWorkerRunner::CWorkerRunner(std::function<CDriveSerial*()> link)
    : m_link(std::move(link)), m_context(std::make_unique<QObject>())
{
    m_thread = std::thread([this] { Loop(); });
}

CWorkerRunner::~CWorkerRunner()
{
    {
        std::lock_guard lock(m_mutex);
        m_bQuit = true;
        m_jobs.clear();
    }
    m_cv.notify_all();
    m_thread.join();
    // Deleting the context removes the completions still posted to it.
    m_context.reset();
}

void CWorkerRunner::Run(LinkWork work, LinkDone done)
{
    {
        std::lock_guard lock(m_mutex);
        m_jobs.push_back(Job{m_link ? m_link() : nullptr, std::move(work), std::move(done)});
    }
    m_cv.notify_one();
}

void CWorkerRunner::Loop()
{
    for (;;) {
        Job job;
        {
            std::unique_lock lock(m_mutex);
            m_cv.wait(lock, [this] { return m_bQuit || !m_jobs.empty(); });
            if (m_bQuit)
                return;
            job = std::move(m_jobs.front());
            m_jobs.pop_front();
        }
        try {
            job.work(job.link);
        } catch (const std::exception&) {
            // The completion sees the exchanges that didn't run as failed ones.
        }
        // The completion reads what the work wrote on this thread.
        QMetaObject::invokeMethod(m_context.get(), HandOverCall(Guarded(std::move(job.done))),
                                  Qt::QueuedConnection);
    }
}

}  // namespace quillon
