#pragma once

/// \file
/// `ThreadQueue`: a serial queue with a thread of its own.

#include <VanticRestKit/platform/dispatch/detail/Queue.h>

#include <memory>

namespace VanticRestKit::detail {

/// The part that handles refer to. The thread owns the other part and does not keep this one alive: when this one is
/// destroyed, the thread runs the remaining blocks and ends.
class ThreadQueue final : public Queue {
public:
    explicit ThreadQueue(std::string label);
    ~ThreadQueue() override;

    void post(Block block) override;

protected:
    const void* identity() const noexcept override { return side_.get(); }

private:
    class ThreadSide;

    const std::shared_ptr<ThreadSide> side_;
};

}  // namespace VanticRestKit::detail
