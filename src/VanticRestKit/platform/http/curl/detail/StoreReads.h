#pragma once

/// \file
/// `StoreReads`: the transfers that wait for what a cache's store has for them.

#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>
#include <VanticRestKit/platform/http/detail/Transfer.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit::detail {

/// Keeps a store that does not answer, such as one on a disk that hangs, from holding loads up for more than a moment.
/// For one thread.
class StoreReads {
public:
    /// A disk that is awake answers in milliseconds, and one that has to start up takes longer than most servers.
    static constexpr std::chrono::milliseconds limit{1000};

    /// Whether reads were given up that the store has not answered since. It is not asked while that is so.
    bool isStuck() const noexcept { return givenUp_ > 0; }

    /// `transfer` begins to wait. Returns the number of the read.
    std::uint64_t begin(std::shared_ptr<Transfer> transfer, TimePoint now) {
        waiting_.push_back({++last_, std::move(transfer), now + limit});
        return last_;
    }

    /// The store has answered. Returns who waits for it; null if it was given up.
    std::shared_ptr<Transfer> end(std::uint64_t number) {
        // Stores answer in the order in which they are asked.
        for (auto read = waiting_.begin(); read != waiting_.end(); ++read) {
            if (read->number != number) continue;
            std::shared_ptr<Transfer> transfer = std::move(read->transfer);
            waiting_.erase(read);
            return transfer;
        }
        --givenUp_;
        return nullptr;
    }

    /// Gives up a read whose time is over. Returns who waits for it; null if there is none.
    std::shared_ptr<Transfer> takeOverdue(TimePoint now) {
        if (waiting_.empty() || waiting_.front().until > now) return nullptr;
        std::shared_ptr<Transfer> transfer = std::move(waiting_.front().transfer);
        waiting_.pop_front();
        ++givenUp_;
        return transfer;
    }

    std::optional<TimePoint> next() const {
        return waiting_.empty() ? std::nullopt : std::optional(waiting_.front().until);
    }

private:
    struct Read {
        std::uint64_t number;
        std::shared_ptr<Transfer> transfer;
        TimePoint until;
    };

    // The first one began first.
    std::deque<Read> waiting_;
    std::uint64_t last_ = 0;
    std::uint64_t givenUp_ = 0;
};

}  // namespace VanticRestKit::detail
