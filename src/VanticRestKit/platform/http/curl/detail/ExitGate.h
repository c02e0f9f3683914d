#pragma once

/// \file
/// `ExitGate`: stops the I/O threads before libcurl and the TLS library are torn down at exit.

#include <VanticRestKit/platform/dispatch/detail/Fork.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <map>
#include <mutex>

namespace VanticRestKit::detail {

/// At exit the TLS library frees data that its connections use, while I/O threads may still run. The gate is closed
/// just before: every thread that then reaches it blocks forever, and exit waits briefly for the threads to get there.
/// I/O threads run only transport code, so the wait is short.
class ExitGate {
public:
    /// Made on first use and never destroyed. Also initialises libcurl.
    static ExitGate& shared();

    /// Registers a thread; `wake` makes it call `pass`. Blocks forever if the gate is closed.
    void enter(const void* who, Block wake);
    /// Unregisters a thread that is about to end. Blocks forever if the gate is closed.
    void leave(const void* who);
    /// Called by a thread in each of its rounds; blocks forever if the gate is closed.
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
