// Who is told that a load waits in the queue of its origin.

#include <VanticRestKit/platform/http/curl/detail/IoLoop.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace VanticRestKit::detail {

// Not sooner: most of them had to wait for nothing.
void IoLoop::noteQueued() {
    for (const std::shared_ptr<Transfer>& transfer : queued_) {
        const auto found = exchanges_.find(transfer.get());
        if (found == exchanges_.end() || !found->second->isWaiting()) continue;
        const std::size_t length = admission_.waitingFor(lineOf(*found->second));
        found->second->waits(LoadProgress::State::queued, static_cast<std::int64_t>(length), now_);
    }
    queued_.clear();
}

}  // namespace VanticRestKit::detail
