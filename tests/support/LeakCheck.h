#pragma once
// Turns leak detection off for the allocations made inside a scope, where a test deliberately
// drives a path that leaves a library's allocations behind. Does nothing in builds without a
// leak sanitizer.

#if defined(__SANITIZE_ADDRESS__)
#define QUILLON_HAS_LSAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QUILLON_HAS_LSAN 1
#endif
#endif

#ifdef QUILLON_HAS_LSAN
#include <sanitizer/lsan_interface.h>
#endif

namespace quillon::test {

class ScopedLeakCheckOff {
public:
#ifdef QUILLON_HAS_LSAN
    ScopedLeakCheckOff() { __lsan_disable(); }
    ~ScopedLeakCheckOff() { __lsan_enable(); }
#else
    ScopedLeakCheckOff() = default;
#endif
    ScopedLeakCheckOff(const ScopedLeakCheckOff&) = delete;
    ScopedLeakCheckOff& operator=(const ScopedLeakCheckOff&) = delete;
};

}  // namespace quillon::test
