#pragma once

/// \file
/// `CacheClock`: the time as a cache sees it.

#include <chrono>
#include <functional>

namespace VanticRestKit::detail {

/// One moment on both clocks of the system.
struct CacheTime {
    /// Since 1970. Dates of HTTP compare with this one; the user or the network may set it, in either direction.
    std::chrono::milliseconds wall{};
    /// Since some start, which differs between processes. It never goes back, but stands still while the device sleeps.
    std::chrono::milliseconds steady{};

    friend bool operator==(const CacheTime&, const CacheTime&) = default;
};

/// Tells the time. Tests set one that they move themselves. Called on any thread.
using CacheClock = std::function<CacheTime()>;

/// The system's time.
inline CacheTime systemCacheTime() {
    using std::chrono::duration_cast;
    using std::chrono::milliseconds;
    return {.wall = duration_cast<milliseconds>(std::chrono::system_clock::now().time_since_epoch()),
            .steady = duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch())};
}

}  // namespace VanticRestKit::detail
