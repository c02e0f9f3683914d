#pragma once

/// \file
/// `ManualExecutor`: a queue whose blocks the test runs, on its own thread.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <chrono>
#include <cstddef>
#include <memory>

namespace VanticRestKit::Testing {

/// Stores the blocks of a `DispatchQueue` until the test runs them.
///
/// Any thread may post to `queue()`. The members below are called by one thread at a time, usually that of the test.
/// When the executor is destroyed, waiting blocks are dropped without being run, and so are blocks that are posted
/// later.
///
/// ```cpp
/// ManualExecutor executor;
/// ScriptedService service(executor);
/// auto load = show->start({.on = executor.queue()}, [&](auto result) { ... });
/// executor.runAll();
/// ```
class ManualExecutor {
public:
    ManualExecutor();
    ~ManualExecutor();
    ManualExecutor(const ManualExecutor&) = delete;
    ManualExecutor& operator=(const ManualExecutor&) = delete;

    /// The queue, for `LoadOptions::on`, publishers, and everything else that delivers on a queue.
    const DispatchQueue& queue() const noexcept;

    /// The number of waiting blocks.
    std::size_t pending() const;

    /// Runs the block that has waited longest. Returns whether there was one.
    bool runOne();

    /// Runs blocks until none is left, including those that are posted meanwhile. Returns the number of blocks.
    std::size_t runAll();

    /// Runs blocks, and waits for blocks from other threads, until `isDone` returns true. This is for code that uses
    /// other threads: `Resource::load` and the user client start their requests on queues of the library. `isDone` is
    /// called on this thread, first immediately and then after each block.
    ///
    /// Returns false if this takes longer than `within`, measured by the system clock.
    bool runUntil(UniqueFunction<bool()> isDone,
                  std::chrono::duration<double> within = std::chrono::seconds(30));

private:
    struct State;

    std::shared_ptr<State> state_;
    DispatchQueue queue_;
};

}  // namespace VanticRestKit::Testing
