#pragma once

/// \file
/// `CacheClock`: the clocks that a cache uses.

#include <chrono>
#include <functional>

namespace VanticRestKit::detail {

/// One point in time on both clocks of the system.
struct CacheTime {
    /// Since 1970. Compared with HTTP dates. May be set forward or back at any time.
    std::chrono::milliseconds wall{};
    /// Since a start that differs between processes. It never goes back, but stops while the device sleeps.
    std::chrono::milliseconds steady{};

    friend bool operator==(const CacheTime&, const CacheTime&) = default;
};

/// Returns the current time. Tests use one that they control. Called on any thread.
using CacheClock = std::function<CacheTime()>;

/// The system's time.
inline CacheTime systemCacheTime() {
    using std::chrono::duration_cast;
    using std::chrono::milliseconds;
    return {.wall = duration_cast<milliseconds>(std::chrono::system_clock::now().time_since_epoch()),
            .steady = duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch())};
}

}  // namespace VanticRestKit::detail
