#include "link/LinkThread.h"

#include "base/ThreadHandOff.h"

#include <utility>

namespace quillon {

class LinkThread::Worker final : public QThread {
public:
    explicit Worker(LinkThread& owner) : m_owner(owner) { setObjectName(QStringLiteral("link")); }

protected:
    void run() override {
        m_owner.Loop();
        // The thread's last touch of the link's state; the destructor takes it over after wait().
        HandOff(&m_owner);
    }

private:
    LinkThread& m_owner;
};

LinkThread::LinkThread() : m_worker(std::make_unique<Worker>(*this))
{
    m_worker->start();
}

LinkThread::~LinkThread()
{
    {
        std::lock_guard lock(m_mutex);
        m_bQuit = true;
    }
    m_toWorker.notify_one();
    m_worker->wait();
    TakeHandOff(this);  // what the thread did comes before the members go away
}

bool LinkThread::IsCurrent() const
{
    return QThread::currentThread() == m_worker.get();
}

void LinkThread::Run(const std::function<void()>& job)
{
    if (IsCurrent()) {
        job();
        return;
    }
    std::lock_guard call(m_callMutex);
    std::unique_lock lock(m_mutex);
    m_job = &job;
    m_bDone = false;
    m_toWorker.notify_one();
    m_toCaller.wait(lock, [this] { return m_bDone; });
    m_job = nullptr;
    if (m_error)
        std::rethrow_exception(std::exchange(m_error, nullptr));
}

void LinkThread::Loop()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_toWorker.wait(lock, [this] { return m_bQuit || (m_job != nullptr && !m_bDone); });
        if (m_job == nullptr || m_bDone)
            return;  // quit with nothing left to do
        const std::function<void()>* job = m_job;
        lock.unlock();
        std::exception_ptr error;
        try {
            (*job)();
        } catch (...) {
            error = std::current_exception();
        }
        lock.lock();
        m_error = error;
        m_bDone = true;
        m_toCaller.notify_one();
    }
}

}  // namespace quillon
