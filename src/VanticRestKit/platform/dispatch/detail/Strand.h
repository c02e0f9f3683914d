#pragma once

/// \file
/// `Strand`: a serial queue on the shared pool.

#include <VanticRestKit/platform/dispatch/detail/BlockList.h>
#include <VanticRestKit/platform/dispatch/detail/Fork.h>
#include <VanticRestKit/platform/dispatch/detail/Queue.h>

#include <memory>
#include <mutex>

namespace VanticRestKit::detail {

/// A queue without a thread. While it has blocks it stands in the pool's line or is being run, which also
/// keeps it alive: nothing that was posted is lost with the last handle, but for unhurried blocks that
/// nothing followed.
class Strand final : public Queue, public std::enable_shared_from_this<Strand> {
public:
    using Queue::Queue;

    void post(Block block) override { add(std::move(block), false); }
    void postUnhurried(Block block) override { add(std::move(block), true); }

    /// Runs some of the blocks. Returns whether the strand has to stand in line again. For the pool only.
    bool run();

private:
    void add(Block block, bool isUnhurried);

    /// So many unhurried blocks are worth a turn of their own.
    static constexpr int mostUnhurried = 32;
    /// After so many blocks the other strands have their turn.
    static constexpr int blocksPerTurn = 32;

    ForkMark mark_;
    std::mutex mutex_;
    BlockList blocks_;
    /// Whether the pool knows of this strand.
    bool isScheduled_ = false;
    /// How many blocks came since the pool last knew of this strand, all of them unhurried.
    int unhurried_ = 0;
};

}  // namespace VanticRestKit::detail
