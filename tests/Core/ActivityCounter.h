#pragma once

/// \file
/// Reads the activity counter, as everybody does: on the main queue.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/detail/NetworkActivity.h>

#include <support/Event.h>

namespace VanticRestKit::test {

/// The counter when the main queue has done all that was posted by now.
inline std::int64_t activityCounter() {
    const Event read;
    std::int64_t value = 0;
    detail::NetworkActivity::readCounter([&value, read](std::int64_t counter) {
        value = counter;
        read.signal();
    });
    EXPECT_TRUE(read.wait());
    return value;
}

/// Brings the counter to zero, whatever tests before have left.
inline void zeroActivityCounter() {
    for (std::int64_t left = activityCounter(); left > 0; --left) NetworkActivityCounter::decrease();
    for (std::int64_t left = activityCounter(); left < 0; ++left) NetworkActivityCounter::increase();
}

/// Waits until the main queue has done all that was posted by now, and what that posted in turn.
inline void settleMainQueue() {
    activityCounter();
    activityCounter();
}

}  // namespace VanticRestKit::test
