#pragma once

/// \file
/// `Strand`: a serial queue on the shared pool.

#include <VanticRestKit/platform/dispatch/detail/BlockList.h>
#include <VanticRestKit/platform/dispatch/detail/Fork.h>
#include <VanticRestKit/platform/dispatch/detail/Queue.h>

#include <memory>
#include <mutex>

namespace VanticRestKit::detail {

/// A queue without a thread of its own. While it has blocks, it is on the pool's ready list or is being run, which also
/// keeps it alive: blocks are not lost with the last handle, except for deferrable ones that are still delayed.
class Strand final : public Queue, public std::enable_shared_from_this<Strand> {
public:
    using Queue::Queue;

    void post(Block block) override { add(std::move(block), false); }
    void postDeferrable(Block block) override { add(std::move(block), true); }

    /// Runs some blocks. Returns whether the strand must be scheduled again. For the pool only.
    bool run();

private:
    void add(Block block, bool isDeferrable);

    /// This many deferrable blocks are scheduled without waiting for an ordinary block.
    static constexpr int maxDeferrable = 32;
    /// After this many blocks other strands get their turn.
    static constexpr int blocksPerTurn = 32;

    ForkMark mark_;
    std::mutex mutex_;
    BlockList blocks_;
    /// Whether the strand is on the pool's ready list or is being run.
    bool isScheduled_ = false;
    /// The number of deferrable blocks posted since the strand was last scheduled.
    int deferred_ = 0;
};

}  // namespace VanticRestKit::detail
