#pragma once

/// \file
/// `Queue`: the implementation of a `DispatchQueue`.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <string>
#include <utility>

namespace VanticRestKit::detail {

/// Base of the kinds of serial queue.
class Queue {
public:
    explicit Queue(std::string label) noexcept : label_(std::move(label)) {}
    Queue(const Queue&) = delete;
    Queue& operator=(const Queue&) = delete;
    virtual ~Queue();

    /// Posts a non-empty block. The caller keeps the queue alive during the call.
    virtual void post(Block block) = 0;

    /// Posts a block whose effect only later blocks of this queue can see. It keeps its place in the order, but the
    /// queue may delay it until an ordinary block or several more deferrable ones are posted.
    virtual void postDeferrable(Block block) { post(std::move(block)); }

    const std::string& label() const noexcept { return label_; }

    /// Whether the calling thread runs a block of this queue.
    bool isCurrent() const noexcept;

protected:
    /// The address by which a running block identifies its queue; valid while one of its blocks runs.
    virtual const void* identity() const noexcept { return this; }

private:
    std::string label_;
};

/// While it exists, marks the queue whose block the calling thread runs. They nest: the host's executor may run a block
/// of the main queue inside a block of another.
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
