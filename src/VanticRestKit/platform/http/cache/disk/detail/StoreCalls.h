#pragma once

/// \file
/// `StoreCalls`: the queue of calls to a store's thread.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <vector>

namespace VanticRestKit::detail {

/// One call. Members that its kind does not use are empty.
struct StoreCall {
    enum class Kind {
        read,
        write,
        writeHead,
        /// Replaces a dropped write: the record that it would have replaced is outdated and must be removed.
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

/// Keeps the order of the calls. Any thread may push; one thread takes.
class StoreCalls {
public:
    explicit StoreCalls(std::size_t maxBytes) : maxBytes_(maxBytes) {}

    /// Returns whether the taking thread must be woken. Drops the oldest writes if too many bytes wait.
    bool push(StoreCall call);

    /// Takes the oldest calls. If there are none, the next `push` asks to wake the thread.
    std::vector<StoreCall> take();

    /// How many writes were dropped.
    std::uint64_t dropped() const;

private:
    void dropWrites();

    const std::size_t maxBytes_;
    mutable std::mutex mutex_;
    std::deque<StoreCall> calls_;
    /// The sizes of the waiting calls and of those that were taken last.
    std::size_t waitingBytes_ = 0;
    std::size_t takenBytes_ = 0;
    /// No call before this one is a write.
    std::size_t firstWrite_ = 0;
    std::uint64_t dropped_ = 0;
    bool isTaking_ = false;
};

}  // namespace VanticRestKit::detail
