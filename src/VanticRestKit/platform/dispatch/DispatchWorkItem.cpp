#include <VanticRestKit/platform/dispatch/DispatchWorkItem.h>

#include <VanticRestKit/platform/dispatch/detail/BlockList.h>

#include <memory>
#include <utility>

namespace VanticRestKit {

namespace {

/// Destroys `block` on the calling thread. If this recurses, because the block held the last reference to another
/// item, the inner block is destroyed after the outer one: a chain of any length needs the stack of two calls.
void dispose(Block block) {
    thread_local detail::BlockList* waiting = nullptr;
    if (waiting != nullptr) {
        waiting->push(std::make_unique<detail::BlockNode>(std::move(block)));
        return;
    }
    detail::BlockList list;
    waiting = &list;
    block = nullptr;
    while (list.pop() != nullptr) {
    }
    waiting = nullptr;
}

}  // namespace

DispatchWorkItem::~DispatchWorkItem() {
    if (block_) dispose(std::move(block_));
}

void DispatchWorkItem::perform() {
    if (!claim()) return;
    Block block = std::move(block_);
    if (block) block();
}

void DispatchWorkItem::cancel() {
    cancelled_.store(true, std::memory_order_release);
    if (!claim()) return;
    const Block dropped = std::move(block_);
}

}  // namespace VanticRestKit
