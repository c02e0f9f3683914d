#pragma once

/// \file
/// `Undelivered`: the bytes of responses that wait for their completions.

#include <VanticRestKit/platform/http/curl/detail/Inbox.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <utility>

namespace VanticRestKit::detail {

/// Counts the bytes that the I/O thread has posted to the delegate queue and whose completions have not been called. If
/// completions are slower than the network, the I/O thread stops reading at a limit, and continues when half of it has
/// been delivered.
class Undelivered {
public:
    Undelivered(std::uint64_t maxBytes, std::shared_ptr<Inbox> inbox)
        : maxBytes_(maxBytes), inbox_(std::move(inbox)) {}
    Undelivered(const Undelivered&) = delete;
    Undelivered& operator=(const Undelivered&) = delete;

    /// A response of `bytes` was posted. On the I/O thread.
    void add(std::uint64_t bytes) { bytes_ += bytes; }

    /// A response of `bytes` is about to be delivered. Wakes the I/O thread if it may continue. On the delegate queue.
    void remove(std::uint64_t bytes) {
        const std::uint64_t before = bytes_.fetch_sub(bytes);
        if (before > maxBytes_ / 2 && before - bytes <= maxBytes_ / 2) inbox_->wake();
    }

    /// Whether the I/O thread must not read. Called once per round on the I/O thread, after the inbox was read, so that
    /// no wake is lost.
    bool update() {
        const std::uint64_t bytes = bytes_;
        isFull_ = isFull_ ? bytes > maxBytes_ / 2 : bytes > maxBytes_;
        return isFull_;
    }
    bool isFull() const noexcept { return isFull_; }

private:
    const std::uint64_t maxBytes_;
    const std::shared_ptr<Inbox> inbox_;
    std::atomic<std::uint64_t> bytes_ = 0;
    bool isFull_ = false;
};

}  // namespace VanticRestKit::detail
