#pragma once

/// \file
/// `RetryBudget`: limits how many requests are retried.

#include <VanticRestKit/Visibility.h>

#include <mutex>

namespace VanticRestKit {

/// Limits retries to a fraction of first attempts, so that a failing service does not receive a multiple of its usual
/// load. Shared by all services that are counted together. Thread-safe.
class VRK_EXPORT RetryBudget {
public:
    /// How many retries each first attempt allows; 0.1 allows one in ten.
    static constexpr double usualShare = 0.1;
    /// How many retries are available at the start, and at most saved up.
    static constexpr double usualReserve = 10;

    /// Negative numbers and NaN count as zero.
    explicit RetryBudget(double share = usualShare, double reserve = usualReserve) noexcept;

    /// Records a first attempt.
    void deposit() noexcept;

    /// Whether one more retry is allowed; if so, it is counted.
    [[nodiscard]] bool withdraw() noexcept;

    /// How many retries are available now.
    double balance() const noexcept;

private:
    const double share_;
    const double reserve_;
    mutable std::mutex mutex_;
    double balance_;
};

}  // namespace VanticRestKit
