#include <VanticRestKit/platform/dispatch/DispatchGroup.h>

#include <VanticRestKit/platform/dispatch/detail/GroupState.h>

namespace VanticRestKit {

DispatchGroup::DispatchGroup() : state_(std::make_shared<detail::GroupState>()) {}

void DispatchGroup::enter() const { state_->enter(); }

void DispatchGroup::leave() const {
    // The waiter may destroy this handle as soon as the count is zero.
    const auto state = state_;
    state->leave();
}

void DispatchGroup::wait() const {
    const auto state = state_;
    state->wait();
}

}  // namespace VanticRestKit
