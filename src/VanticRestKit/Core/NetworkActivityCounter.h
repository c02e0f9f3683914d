#pragma once

/// \file
/// `NetworkActivityCounter`: drives the host's network activity indicator.

#include <VanticRestKit/platform/dispatch/SharedFunction.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>

namespace VanticRestKit {

namespace detail {
struct NetworkActivity;
}

/// Counts the requests in progress, for a host that shows an activity indicator.
///
/// The counter is only used on the main queue: all functions may be called on any thread and only post a block there.
/// It can fall below zero (see `NetworkServiceble`), which also shows the indicator.
class VRK_EXPORT NetworkActivityCounter {
public:
    /// Receives whether the indicator should be visible. Called on the main queue after each change of the counter,
    /// with the state at that time.
    using Indicator = SharedFunction<void(bool visible)>;

    /// Increments the counter.
    static void increase();
    /// Decrements the counter.
    static void decrease();

    /// Replaces the host's indicator; an empty function removes it. It is called for later changes, not with the
    /// current state.
    static void setIndicator(Indicator indicator);

private:
    friend struct detail::NetworkActivity;

    NetworkActivityCounter() = default;

    static void change(std::int64_t by);
    static void setCounter(std::int64_t value);

    static std::int64_t counter;
};

}  // namespace VanticRestKit
