#include <VanticRestKit/platform/dispatch/detail/BlockList.h>
#include <VanticRestKit/platform/dispatch/detail/Disposal.h>

namespace VanticRestKit::detail {

void dispose(Block block) {
    thread_local BlockList* waiting = nullptr;
    if (waiting != nullptr) {
        waiting->push(std::make_unique<BlockNode>(std::move(block)));
        return;
    }
    BlockList list;
    waiting = &list;
    block = nullptr;
    while (list.pop() != nullptr) {
    }
    waiting = nullptr;
}

}  // namespace VanticRestKit::detail
