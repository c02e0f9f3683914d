#include <VanticRestKit/platform/dispatch/detail/Queue.h>

#include <utility>

namespace VanticRestKit::detail {

namespace {
thread_local const void* current = nullptr;
}

Queue::~Queue() = default;

bool Queue::isCurrent() const noexcept { return current == identity(); }

CurrentQueue::CurrentQueue(const void* identity) noexcept : previous_(std::exchange(current, identity)) {}

CurrentQueue::~CurrentQueue() { current = previous_; }

}  // namespace VanticRestKit::detail
