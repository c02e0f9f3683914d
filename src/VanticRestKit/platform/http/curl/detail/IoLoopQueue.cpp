// Reports which loads wait in the queue of their origin.

#include <VanticRestKit/platform/http/curl/detail/IoLoop.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace VanticRestKit::detail {

// Called at the end of a round, because most loads do not have to wait at all.
void IoLoop::reportQueued() {
    for (const std::shared_ptr<Transfer>& transfer : queued_) {
        const auto found = exchanges_.find(transfer.get());
        if (found == exchanges_.end() || !found->second->isWaiting()) continue;
        const std::size_t length = admission_.waitingFor(queueKeyOf(*found->second));
        found->second->reportWaiting(LoadProgress::State::queued, static_cast<std::int64_t>(length), now_);
    }
    queued_.clear();
}

}  // namespace VanticRestKit::detail
