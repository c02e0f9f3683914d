#pragma once

/// \file
/// `ForkMark`: detects that the process is a forked child.

#include <atomic>
#include <cstdint>
#include <mutex>

namespace VanticRestKit::detail {

/// The number of `fork` calls between this process and the one that first called this function.
std::uint64_t forkCount() noexcept;

/// Held while a child renews objects that it inherited from its parent.
std::mutex& forkMutex() noexcept;

/// Records in which process an object was made. A forked child has a copy of the object but none of its threads, and a
/// lock that another thread held at that moment stays locked.
class ForkMark {
public:
    /// Whether the mark was made or last renewed in this process.
    bool isCurrent() const noexcept { return count_.load(std::memory_order_acquire) == forkCount(); }

    /// In a child, the first call runs `renew`, which resets the object; later calls do nothing.
    template <class Renew>
    void renewInChild(Renew renew) {
        if (isCurrent()) return;
        const std::lock_guard lock(forkMutex());
        if (isCurrent()) return;
        renew();
        count_.store(forkCount(), std::memory_order_release);
    }

private:
    std::atomic<std::uint64_t> count_ = forkCount();
};

}  // namespace VanticRestKit::detail
