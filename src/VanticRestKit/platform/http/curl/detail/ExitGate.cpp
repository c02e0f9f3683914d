#include <VanticRestKit/platform/http/curl/detail/ExitGate.h>

#include <curl/curl.h>
#include <unistd.h>
#include <chrono>
#include <cstdlib>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// Which process the gate belongs to: a child made by fork has none of its threads.
pid_t owner() {
    static const pid_t process = getpid();
    return process;
}

}  // namespace

ExitGate& ExitGate::shared() {
    static ExitGate& gate = *new ExitGate;
    return gate;
}

ExitGate::ExitGate() {
    owner();
    // What libcurl and its TLS library register for the end of the process must be registered first, because
    // the last one registered runs first.
    curl_global_init(CURL_GLOBAL_DEFAULT);
    std::atexit(&ExitGate::close);
}

void ExitGate::enter(const void* who, Block wake) {
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
    constexpr std::chrono::seconds longestWait{2};
    if (owner() != getpid()) return;
    ExitGate& gate = shared();
    std::unique_lock lock(gate.mutex_);
    gate.isClosed_.store(true, std::memory_order_release);
    for (auto& [who, wake] : gate.inside_) wake();
    gate.stayed_.wait_for(lock, longestWait, [&gate] { return gate.staying_ == gate.inside_.size(); });
}

}  // namespace VanticRestKit::detail
