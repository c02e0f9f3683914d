#pragma once

/// \file
/// `Queue`: what stands behind a `DispatchQueue`.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <string>
#include <utility>

namespace VanticRestKit::detail {

/// A serial queue of one kind or another.
class Queue {
public:
    explicit Queue(std::string label) noexcept : label_(std::move(label)) {}
    Queue(const Queue&) = delete;
    Queue& operator=(const Queue&) = delete;
    virtual ~Queue();

    /// Posts a block that is not empty. The caller keeps the queue alive during the call.
    virtual void post(Block block) = 0;

    /// Posts a block whose effect only later blocks of this queue can see: it has its place in the order, but
    /// the queue may leave it waiting until such a block comes, or some more of its own kind.
    virtual void postUnhurried(Block block) { post(std::move(block)); }

    const std::string& label() const noexcept { return label_; }

    /// Whether the calling thread is inside a block of this queue.
    bool isCurrent() const noexcept;

protected:
    /// The object whose blocks are this queue's; it lives at least as long as one of them runs.
    virtual const void* identity() const noexcept { return this; }

private:
    std::string label_;
};

/// Says which queue the calling thread runs a block of, for the time of its life. They nest: an executor of
/// the host may run a block of the main queue inside a block of another.
class CurrentQueue {
public:
    explicit CurrentQueue(const void* identity) noexcept;
    CurrentQueue(const CurrentQueue&) = delete;
    CurrentQueue& operator=(const CurrentQueue&) = delete;
    ~CurrentQueue();

private:
    const void* previous_;
};

}  // namespace VanticRestKit::detail
