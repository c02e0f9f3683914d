#pragma once

/// \file
/// `RetryBudget`: how many requests may be sent again.

#include <VanticRestKit/Visibility.h>

#include <mutex>

namespace VanticRestKit {

/// Keeps repeated requests in proportion to first ones, so that a service in trouble does not get several times its
/// usual load. Shared by all services that are to be counted together. Any thread may call.
class VRK_EXPORT RetryBudget {
public:
    /// How many requests may be repeated for each first one; 0.1 allows one in ten.
    static constexpr double usualShare = 0.1;
    /// How many may be repeated at once, after quiet times and at the start.
    static constexpr double usualReserve = 10;

    /// Numbers below zero, and those that are none, count as zero.
    explicit RetryBudget(double share = usualShare, double reserve = usualReserve) noexcept;

    /// A request was sent for the first time.
    void deposit() noexcept;

    /// Whether one more request may be repeated; if so, it is counted.
    [[nodiscard]] bool withdraw() noexcept;

    /// How many requests may be repeated now.
    double balance() const noexcept;

private:
    const double share_;
    const double reserve_;
    mutable std::mutex mutex_;
    double balance_;
};

}  // namespace VanticRestKit
