#pragma once
// Hand-overs between our threads that go through Qt: a worker posts a call to the interface
// thread (a monitoring window's completion, a frame for the Frame log window, a question the
// link work asks, the end of a piece of link work) and the interface thread runs it later; a
// link's I/O thread ends and its owner's QThread::wait() returns. Qt orders the one before the
// other, but that ordering lives inside Qt's libraries, which the race checker of the
// ThreadSanitizer build does not see into; to it, the data the taking side reads was written by
// another thread without any ordering. These helpers state the ordering in our code, at the
// hand-over itself: HandOff on the giving thread, before the post; TakeHandOff on the taking
// thread, after it has received the call. In a build without ThreadSanitizer they compile to
// nothing.
//
// Shared state of our own that is not handed over this way is guarded by std::mutex or
// std::atomic, which the checker sees anyway.

#include <utility>

#if defined(__SANITIZE_THREAD__)
#define QUILLON_THREAD_CHECKS 1
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define QUILLON_THREAD_CHECKS 1
#endif
#endif

#ifdef QUILLON_THREAD_CHECKS
#include <sanitizer/tsan_interface.h>
#endif

namespace quillon {

// Everything this thread wrote so far goes to whoever takes `token` over.
inline void HandOff([[maybe_unused]] const void* token) noexcept {
#ifdef QUILLON_THREAD_CHECKS
    __tsan_release(const_cast<void*>(token));
#endif
}

// This thread now has what was handed off under `token`.
inline void TakeHandOff([[maybe_unused]] const void* token) noexcept {
#ifdef QUILLON_THREAD_CHECKS
    __tsan_acquire(const_cast<void*>(token));
#endif
}

#ifdef QUILLON_THREAD_CHECKS
namespace detail {

// The last member of a posted call: whenever the call is built or moved (Qt moves it into the
// event it posts), the hand-off is marked after the call's captures have been written.
struct HandOffMark {
    HandOffMark() noexcept { HandOff(this); }
    HandOffMark(const HandOffMark&) noexcept { HandOff(this); }
    HandOffMark(HandOffMark&&) noexcept { HandOff(this); }
    HandOffMark& operator=(const HandOffMark&) = delete;
    ~HandOffMark() = default;
};

template <typename F>
class HandedOverCall {
public:
    explicit HandedOverCall(F f) : m_f(std::move(f)) {}
    HandedOverCall(const HandedOverCall&) = default;
    HandedOverCall(HandedOverCall&&) = default;
    HandedOverCall& operator=(const HandedOverCall&) = delete;
    // A call dropped undelivered (its receiver gone) is destroyed on the taking thread too.
    ~HandedOverCall() { TakeHandOff(&m_mark); }

    template <typename... A>
    decltype(auto) operator()(A&&... args) {
        TakeHandOff(&m_mark);
        return m_f(std::forward<A>(args)...);
    }

private:
    F m_f;
    HandOffMark m_mark;  // last: see HandOffMark
};

}  // namespace detail
#endif

// Wraps `f` for QMetaObject::invokeMethod(receiver, ..., Qt::QueuedConnection or
// Qt::BlockingQueuedConnection) from another thread: what the posting thread wrote before the
// post, the call's captures included, is handed over to the call.
template <typename F>
auto HandOverCall(F f) {
#ifdef QUILLON_THREAD_CHECKS
    return detail::HandedOverCall<F>(std::move(f));
#else
    return f;
#endif
}

}  // namespace quillon
