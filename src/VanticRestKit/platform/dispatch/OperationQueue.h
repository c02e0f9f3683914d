#pragma once

/// \file
/// `OperationQueue`: the name and the settings of an operation queue.

#include <cstdint>
#include <string>

namespace VanticRestKit {

/// Only the name and settings of a queue: it has no thread and accepts no work.
struct OperationQueue {
    /// Leaves the number of concurrent operations to the system.
    static constexpr std::int64_t defaultMaxConcurrentOperationCount = -1;

    /// For debugging; empty means unnamed.
    std::string name{};
    /// How many operations may run at once.
    std::int64_t maxConcurrentOperationCount = defaultMaxConcurrentOperationCount;
    /// Whether the queue starts no further operations.
    bool isSuspended = false;

    friend bool operator==(const OperationQueue&, const OperationQueue&) = default;
};

}  // namespace VanticRestKit
