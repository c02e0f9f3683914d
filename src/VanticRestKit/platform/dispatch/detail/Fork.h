#pragma once

/// \file
/// `ForkMark`: finds out that the process is a child that `fork` has made since.

#include <atomic>
#include <cstdint>
#include <mutex>

namespace VanticRestKit::detail {

/// How many calls of `fork` lie between this process and the one that first asked.
std::uint64_t forkCount() noexcept;

/// Under it, objects of the parent are made usable in the child.
std::mutex& forkMutex() noexcept;

/// Notes in which process an object was made. A child has a copy of it, but none of the threads that worked for it, and
/// another thread may have held its locks at that moment for good.
class ForkMark {
public:
    /// Whether this is the process in which the mark was made, or last renewed.
    bool isCurrent() const noexcept { return count_.load(std::memory_order_acquire) == forkCount(); }

    /// In a child, has the first call run `renew`, which makes the object as good as new; later ones do nothing.
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
