#pragma once

/// \file
/// `ExitGate`: stops the I/O threads before the process takes libcurl and its TLS library away.

#include <VanticRestKit/platform/dispatch/detail/Fork.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <map>
#include <mutex>

namespace VanticRestKit::detail {

/// At the end of the process the TLS library frees what its connections stand on, while I/O threads may still
/// run. The gate is closed just before: every thread that passes it from then on stays there for good, and
/// the end waits a moment for those on their way. They run nothing but the transport, so that the moment is
/// short.
class ExitGate {
public:
    /// Made on first use and never destroyed. Makes libcurl ready as well.
    static ExitGate& shared();

    /// Lets a thread in, which `wake` brings to the gate. It stays here for good if the gate is closed.
    void enter(const void* who, Block wake);
    /// A thread ends. It stays here for good if the gate is closed.
    void leave(const void* who);
    /// To be called by a thread in each of its rounds; does not return when the gate is closed.
    void pass() {
        if (isClosed_.load(std::memory_order_acquire)) stay();
    }

private:
    ExitGate();
    static void close();
    [[noreturn]] void stay();
    void renew();

    ForkMark mark_;
    std::atomic<bool> isClosed_ = false;
    std::mutex mutex_;
    std::condition_variable stayed_;
    std::condition_variable never_;
    std::map<const void*, Block> inside_;
    std::size_t staying_ = 0;
};

}  // namespace VanticRestKit::detail
