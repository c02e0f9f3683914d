#pragma once

/// \file
/// Reads the activity counter on the main queue, as the library does.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/detail/NetworkActivity.h>

#include <support/Event.h>

namespace VanticRestKit::test {

/// The value of the counter after the main queue has run everything posted so far.
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

/// Resets the counter to zero, whatever earlier tests left it at.
inline void zeroActivityCounter() {
    for (std::int64_t left = activityCounter(); left > 0; --left) NetworkActivityCounter::decrease();
    for (std::int64_t left = activityCounter(); left < 0; ++left) NetworkActivityCounter::increase();
}

/// Waits until the main queue has run everything posted so far, and everything that these blocks posted.
inline void settleMainQueue() {
    activityCounter();
    activityCounter();
}

}  // namespace VanticRestKit::test
