#pragma once

/// \file
/// `StoreCalls`: the calls to a store that wait for its thread.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <vector>

namespace VanticRestKit::detail {

/// One call. What does not belong to its kind is empty.
struct StoreCall {
    enum class Kind {
        read,
        write,
        writeHead,
        /// What becomes of a write that is dropped: the record that it was to replace must not stay, since it is
        /// outdated.
        removeRecord,
        remove,
        /// `record.key` is the prefix.
        removeAll,
        flush,
    };

    Kind kind = Kind::flush;
    CacheRecord record{};
    CacheStore::Found found{};
    Block done{};

    std::size_t bytes() const noexcept;
};

/// Keeps the order of the calls. Any thread may push; one takes.
class StoreCalls {
public:
    explicit StoreCalls(std::size_t maxBytes) noexcept : maxBytes_(maxBytes) {}

    /// Returns whether the taking thread has to be woken. Drops the oldest writes if too many bytes wait.
    bool push(StoreCall call);

    /// The oldest calls. After none, the next `push` asks for the thread again.
    std::vector<StoreCall> take();

    /// How many writes were dropped.
    std::uint64_t dropped() const;

private:
    void dropWrites();

    const std::size_t maxBytes_;
    mutable std::mutex mutex_;
    std::deque<StoreCall> calls_;
    /// Of the calls that wait and of those that were taken last.
    std::size_t waitingBytes_ = 0;
    std::size_t takenBytes_ = 0;
    /// No call before this one is a write.
    std::size_t firstWrite_ = 0;
    std::uint64_t dropped_ = 0;
    bool isTaking_ = false;
};

}  // namespace VanticRestKit::detail
