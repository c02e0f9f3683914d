#pragma once

/// \file
/// `ManualExecutor`: a queue whose blocks run when the test says so, on the test's thread.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <chrono>
#include <cstddef>
#include <memory>

namespace VanticRestKit::Testing {

/// Keeps the blocks of a `DispatchQueue` until the test runs them. Nothing runs by itself.
///
/// Any thread may post to `queue()`; one thread at a time, as a rule that of the test, calls the members below. What
/// still waits when the executor goes, and what is posted later, is dropped without being run.
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

    /// For `LoadOptions::on`, publishers, and whatever else delivers on a queue.
    const DispatchQueue& queue() const noexcept;

    /// How many blocks wait.
    std::size_t pending() const;

    /// Runs the block that has waited longest. Whether there was one.
    bool runOne();

    /// Runs blocks until none waits, also those that are posted meanwhile. How many ran.
    std::size_t runAll();

    /// Runs blocks, and waits for further ones from other threads, until `isDone` gives true. For code with threads of
    /// its own: `Resource::load` and the user client start their requests on queues of the library. `isDone` is called
    /// on this thread, first at once and then after each block.
    ///
    /// False if it did not come to that `within` this time of the system's clock.
    bool runUntil(UniqueFunction<bool()> isDone,
                  std::chrono::duration<double> within = std::chrono::seconds(30));

private:
    struct State;

    std::shared_ptr<State> state_;
    DispatchQueue queue_;
};

}  // namespace VanticRestKit::Testing
