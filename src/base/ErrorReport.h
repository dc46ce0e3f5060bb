#pragma once
// The last line of defence for errors: an exception that escapes a command is shown to the person
// and the session goes on, with no crash and no lost project.
//
// Our own slots are wrapped with Guarded() so the exception is caught before it reaches Qt's code:
// Qt's libraries are built without exception support, and unwinding through them would skip
// their clean-ups. The application object's event dispatch catches whatever still escapes.

#include <exception>
#include <type_traits>
#include <utility>

namespace quillon {

// Shows the exception's text through the prompt seam.
void ReportUnhandled(const std::exception& e);

// Runs `f` now, reporting an escaping std::exception: the body of an event handler of our own.
template <typename F>
void GuardedCall(F&& f) {
    try {
        std::forward<F>(f)();
    } catch (const std::exception& e) {
        ReportUnhandled(e);
    }
}

// Wraps a callable for connect(): the same call, with an escaping std::exception reported. Like
// connect() itself, it lets a slot ignore the signal's arguments.
template <typename F>
auto Guarded(F f) {
    return [f = std::move(f)](auto&&... args) mutable {
        try {
            if constexpr (std::is_invocable_v<F&, decltype(args)...>)
                f(std::forward<decltype(args)>(args)...);
            else
                f();
        } catch (const std::exception& e) {
            ReportUnhandled(e);
        }
    };
}

}  // namespace quillon
