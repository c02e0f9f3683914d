#include <VanticRestKit/platform/async/LoadFuture.h>
#include <VanticRestKit/platform/dispatch/detail/Pool.h>
#include <VanticRestKit/platform/error/NSError.h>

#include <string>

namespace VanticRestKit::detail {

FutureState::FutureState() = default;
FutureState::~FutureState() = default;

bool FutureState::isReady() const {
    const std::lock_guard lock(mutex_);
    return isReady_;
}

void FutureState::wait() const {
    // Lets the pool replace this thread while it waits.
    const PoolWait counted;
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return isReady_; });
}

bool FutureState::waitFor(std::chrono::duration<double> time) const {
    const PoolWait counted;
    std::unique_lock lock(mutex_);
    // Practically unlimited, but small enough to be added to the current time.
    constexpr std::chrono::duration<double> maxWait = std::chrono::years(100);
    return changed_.wait_for(lock, time < maxWait ? time : maxWait, [this] { return isReady_; });
}

void FutureState::whenReady(Block then) {
    {
        const std::lock_guard lock(mutex_);
        if (!isReady_) {
            then_ = std::move(then);
            return;
        }
    }
    then();
}

void FutureState::ready() {
    Block then;
    {
        const std::lock_guard lock(mutex_);
        isReady_ = true;
        then = std::move(then_);
        changed_.notify_all();
    }
    if (then) then();
}

Error waitWouldNeverEnd() {
    return NSError(
        "VanticRestKit.Wait", 1,
        {{std::string(NSLocalizedDescriptionKey),
          "This wait was begun on the queue that has to deliver its outcome, and would never end."}});
}

}  // namespace VanticRestKit::detail
