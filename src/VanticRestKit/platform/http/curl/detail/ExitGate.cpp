#include <VanticRestKit/platform/http/curl/detail/ExitGate.h>
#include <VanticRestKit/platform/http/curl/detail/GlobalInit.h>

#include <chrono>
#include <cstdlib>
#include <new>
#include <utility>

namespace VanticRestKit::detail {

ExitGate& ExitGate::shared() {
    static ExitGate& gate = *new ExitGate;
    return gate;
}

ExitGate::ExitGate() {
    // The exit handlers of libcurl and the TLS library must be registered first, because exit handlers run in reverse
    // order.
    initialiseLibcurl();
    std::atexit(&ExitGate::close);
}

// Constructs new members in place in a forked child: a thread of the parent may hold the lock. The old map is never
// destroyed.
void ExitGate::renew() {
    new (&mutex_) std::mutex;
    new (&stayed_) std::condition_variable;
    new (&never_) std::condition_variable;
    new (&inside_) std::map<const void*, Block>;
    staying_ = 0;
}

void ExitGate::enter(const void* who, Block wake) {
    mark_.renewInChild([this] { renew(); });
    {
        const std::lock_guard lock(mutex_);
        if (!isClosed_.load(std::memory_order_relaxed)) {
            inside_.emplace(who, std::move(wake));
            return;
        }
    }
    stay();
}

void ExitGate::leave(const void* who) {
    Block wake;
    {
        const std::lock_guard lock(mutex_);
        if (!isClosed_.load(std::memory_order_relaxed)) {
            if (auto node = inside_.extract(who)) wake = std::move(node.mapped());
            return;
        }
    }
    stay();
}

void ExitGate::stay() {
    std::unique_lock lock(mutex_);
    ++staying_;
    stayed_.notify_all();
    while (true) never_.wait(lock);
}

void ExitGate::close() {
    constexpr std::chrono::seconds maxWait{2};
    ExitGate& gate = shared();
    // A child made by fork has none of the threads.
    if (!gate.mark_.isCurrent()) return;
    std::unique_lock lock(gate.mutex_);
    gate.isClosed_.store(true, std::memory_order_release);
    for (auto& [who, wake] : gate.inside_) wake();
    gate.stayed_.wait_for(lock, maxWait, [&gate] { return gate.staying_ == gate.inside_.size(); });
}

}  // namespace VanticRestKit::detail
