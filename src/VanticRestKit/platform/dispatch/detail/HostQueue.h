#pragma once

/// \file
/// `HostQueue`: a serial queue whose blocks the host runs.

#include <VanticRestKit/platform/dispatch/detail/BlockList.h>
#include <VanticRestKit/platform/dispatch/detail/Queue.h>

#include <cstddef>
#include <memory>
#include <mutex>

namespace VanticRestKit::detail {

/// Gives the host's executor one turn for each block posted. A turn runs the oldest waiting block, so blocks run in
/// order whatever order the turns run in; if a turn is called during another, the running one runs both blocks.
class HostQueue final : public Queue, public std::enable_shared_from_this<HostQueue> {
public:
    HostQueue(std::string label, UniqueFunction<void(Block)> executor) noexcept
        : Queue(std::move(label)), executor_(std::move(executor)) {}

    void post(Block block) override;

private:
    class Turn;

    void take();
    void discard();
    std::unique_ptr<BlockNode> popForTurn();

    UniqueFunction<void(Block)> executor_;
    std::mutex mutex_;
    BlockList blocks_;
    /// Turns that were called and whose blocks have not run yet.
    std::size_t turns_ = 0;
    bool isRunning_ = false;
};

}  // namespace VanticRestKit::detail
