#pragma once

/// \file
/// `NetworkActivityCounter`: drives the host's sign of network activity.

#include <VanticRestKit/platform/dispatch/SharedFunction.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>

namespace VanticRestKit {

namespace detail {
struct NetworkActivity;
}

/// Counts the requests under way, for a host that shows a sign of network activity.
///
/// The counter lives on the main queue alone: all functions here may be called from any thread and only post
/// a block there. It can fall below zero (see `NetworkServiceble`), which shows the sign as well.
class VRK_EXPORT NetworkActivityCounter {
public:
    /// Receives whether the sign is to be visible. Called on the main queue, once after each change of the
    /// counter, with what the counter says by then.
    using Indicator = SharedFunction<void(bool visible)>;

    /// Adds one.
    static void increase();
    /// Takes one away.
    static void decrease();

    /// Installs the host's sign in place of the one before; an empty function installs none. It is told of
    /// changes from now on, not of the present state.
    static void setIndicator(Indicator indicator);

private:
    friend struct detail::NetworkActivity;

    NetworkActivityCounter() = default;

    static void change(std::int64_t by);
    static void setCounter(std::int64_t value);

    static std::int64_t counter;
};

}  // namespace VanticRestKit
