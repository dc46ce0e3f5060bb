#pragma once
// The I/O thread of one link. Opening and closing a channel happen here, so the Qt objects
// behind it (QSerialPort, QTcpSocket) are created, used and destroyed on one thread whatever
// thread works the link: the interface thread or the auto-refresh worker. The byte I/O of a
// channel that can't run on any thread (Channel::AnyThreadIo) runs here too. The thread runs
// no event loop; channels use blocking calls.

#include <QThread>
#include <condition_variable>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>

namespace quillon {

class LinkThread {
public:
    LinkThread();
    ~LinkThread();  // finishes the job under way, then stops the thread
    LinkThread(const LinkThread&) = delete;
    LinkThread& operator=(const LinkThread&) = delete;

    // Runs `job` on the I/O thread and returns when it has finished. Called from the I/O thread
    // itself (a job that calls back into the link), it runs `job` at once. Callers from other
    // threads are served one after the other. An exception thrown by `job` reaches the caller.
    void Run(const std::function<void()>& job);

    bool IsCurrent() const;

private:
    class Worker;
    void Loop();

    std::mutex m_callMutex;  // one caller at a time
    std::mutex m_mutex;      // guards the fields below
    std::condition_variable m_toWorker;
    std::condition_variable m_toCaller;
    const std::function<void()>* m_job = nullptr;
    bool m_bDone = false;
    std::exception_ptr m_error;
    bool m_bQuit = false;
    std::unique_ptr<Worker> m_worker;
};

}  // namespace quillon
