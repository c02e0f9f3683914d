#pragma once

/// \file
/// `StoreReads`: the transfers that wait for a read of a cache's store.

#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>
#include <VanticRestKit/platform/http/detail/Transfer.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit::detail {

/// Limits how long loads wait for a store that does not respond, such as one on a hanging disk. For one thread.
class StoreReads {
public:
    /// A running disk responds in milliseconds, and one that must spin up takes longer than most servers.
    static constexpr std::chrono::milliseconds limit{1000};

    /// Whether the store has yet to finish reads that were given up. It is not read meanwhile.
    bool isStuck() const noexcept { return givenUp_ > 0; }

    /// `transfer` starts to wait. Returns the number of the read.
    std::uint64_t begin(std::shared_ptr<Transfer> transfer, TimePoint now) {
        waiting_.push_back({++last_, std::move(transfer), now + limit});
        return last_;
    }

    /// The store has finished a read. Returns the transfer that waits for it; null if it was given up.
    std::shared_ptr<Transfer> end(std::uint64_t number) {
        // Stores finish reads in order, so the first entry usually matches.
        for (auto read = waiting_.begin(); read != waiting_.end(); ++read) {
            if (read->number != number) continue;
            std::shared_ptr<Transfer> transfer = std::move(read->transfer);
            waiting_.erase(read);
            return transfer;
        }
        --givenUp_;
        return nullptr;
    }

    /// Gives up a read whose time is up. Returns the transfer that waits for it; null if there is none.
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

    // Oldest first.
    std::deque<Read> waiting_;
    std::uint64_t last_ = 0;
    std::uint64_t givenUp_ = 0;
};

}  // namespace VanticRestKit::detail
