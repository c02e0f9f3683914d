#pragma once

/// \file
/// `OperationQueue`: the name and the settings of an operation queue.

#include <cstdint>
#include <string>

namespace VanticRestKit {

/// A queue's name and settings, nothing more: it has no thread and takes no work.
struct OperationQueue {
    /// Leaves the number of operations at a time to the system.
    static constexpr std::int64_t defaultMaxConcurrentOperationCount = -1;

    /// For people; empty means unnamed.
    std::string name{};
    /// How many operations may run at a time.
    std::int64_t maxConcurrentOperationCount = defaultMaxConcurrentOperationCount;
    /// Whether the queue holds back its operations.
    bool isSuspended = false;

    friend bool operator==(const OperationQueue&, const OperationQueue&) = default;
};

}  // namespace VanticRestKit
