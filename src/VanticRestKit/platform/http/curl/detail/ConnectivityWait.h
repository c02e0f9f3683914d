#pragma once

/// \file
/// `ConnectivityWait`: the transfers that wait for connectivity.

#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>
#include <VanticRestKit/platform/http/detail/Transfer.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit::detail {

/// Holds transfers whose host could not be reached until it is time to retry. For one thread.
class ConnectivityWait {
public:
    /// How long to wait before retry number `attempt`, from 1: short at first, then doubled up to a limit.
    static Clock::duration pauseBefore(int attempt) {
        constexpr std::chrono::milliseconds first{100};
        constexpr int doublings = 6;
        return first * (1 << std::min(attempt - 1, doublings));
    }

    void add(std::shared_ptr<Transfer> transfer, TimePoint until) {
        waiting_.emplace(until, std::move(transfer));
    }

    /// A transfer that is due; null if there is none. It may have ended meanwhile.
    std::shared_ptr<Transfer> takeDue(TimePoint now) {
        if (waiting_.empty() || waiting_.begin()->first > now) return nullptr;
        std::shared_ptr<Transfer> due = std::move(waiting_.begin()->second);
        waiting_.erase(waiting_.begin());
        return due;
    }

    std::optional<TimePoint> next() const {
        return waiting_.empty() ? std::nullopt : std::optional(waiting_.begin()->first);
    }

private:
    std::multimap<TimePoint, std::shared_ptr<Transfer>> waiting_;
};

}  // namespace VanticRestKit::detail
