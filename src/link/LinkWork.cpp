#include "link/LinkWork.h"

#include "base/ThreadHandOff.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <atomic>
#include <exception>
#include <thread>

namespace quillon {
namespace {

std::atomic<int> g_running{0};

class RunningMark {
public:
    RunningMark() { g_running.fetch_add(1, std::memory_order_relaxed); }
    ~RunningMark() { g_running.fetch_sub(1, std::memory_order_relaxed); }
    RunningMark(const RunningMark&) = delete;
    RunningMark& operator=(const RunningMark&) = delete;
};

}  // namespace

bool LinkWorkRunning() { return g_running.load(std::memory_order_relaxed) > 0; }

void RunLinkWork(const std::function<void()>& job) {
    const QCoreApplication* app = QCoreApplication::instance();
    if (!app || QThread::currentThread() != app->thread()) {
        job();
        return;
    }
    RunningMark mark;
    QEventLoop loop;
    std::exception_ptr error;
    std::thread worker([&] {
        try {
            job();
        } catch (...) {
            error = std::current_exception();
        }
        QMetaObject::invokeMethod(&loop, HandOverCall([&loop] { loop.quit(); }),
                                  Qt::QueuedConnection);
    });
    // The loop also ends when the application quits; the join below still waits for the job.
    loop.exec();
    worker.join();
    if (error) std::rethrow_exception(error);
}

}  // namespace quillon
