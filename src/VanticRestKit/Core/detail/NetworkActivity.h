#pragma once

#include <VanticRestKit/Core/NetworkActivityCounter.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <cstdint>
#include <utility>

namespace VanticRestKit::detail {

/// Lets tests read the counter, on the main queue.
struct NetworkActivity {
    static void readCounter(UniqueFunction<void(std::int64_t)> reader) {
        DispatchQueue::main().async(
            [reader = std::move(reader)]() mutable { reader(NetworkActivityCounter::counter); });
    }

    /// Sets the counter to a value that a test could not reach by counting, without calling the indicator.
    static void placeCounter(std::int64_t value) {
        DispatchQueue::main().async([value] { NetworkActivityCounter::counter = value; });
    }
};

}  // namespace VanticRestKit::detail
