#include <VanticRestKit/platform/dispatch/detail/Disposal.h>
#include <VanticRestKit/platform/dispatch/DispatchWorkItem.h>

namespace VanticRestKit {

DispatchWorkItem::~DispatchWorkItem() {
    if (block_) detail::dispose(std::move(block_));
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
