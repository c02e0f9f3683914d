#pragma once

/// \file
/// `HostQueue`: a serial queue whose blocks the host runs.

#include <VanticRestKit/platform/dispatch/detail/BlockList.h>
#include <VanticRestKit/platform/dispatch/detail/Queue.h>

#include <cstddef>
#include <memory>
#include <mutex>

namespace VanticRestKit::detail {

/// Hands the host one turn for each block posted. A turn runs the oldest block waiting, so that the order
/// holds whatever the host does with the turns; one that comes while another runs is made up for by that one.
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
    /// Turns that were taken and whose blocks have not run yet.
    std::size_t turns_ = 0;
    bool isRunning_ = false;
};

}  // namespace VanticRestKit::detail
