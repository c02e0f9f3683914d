#include <VanticRestKit/platform/dispatch/detail/Thread.h>
#include <VanticRestKit/platform/dispatch/detail/Timer.h>

#include <algorithm>

namespace VanticRestKit::detail {

namespace {

// Longer than any process runs, and far below what a time point can hold.
constexpr std::chrono::duration<double> maxDelay = std::chrono::years(100);

}  // namespace

Timer& Timer::shared() {
    static Timer& timer = *new Timer;
    return timer;
}

Timer::Id Timer::add(std::chrono::duration<double> delay, Block function, WithoutThread withoutThread) {
    if (const std::shared_ptr<TimerSource> source = source_.load()) {
        source->after(delay, std::move(function));
        return {};
    }
    const auto due = Clock::now() + std::chrono::ceil<Clock::duration>(std::min(delay, maxDelay));
    std::unique_lock lock(mutex_);
    if (!hasThread_) hasThread_ = startThread("VRK timer", [this] { run(); });
    if (!hasThread_ && withoutThread == WithoutThread::isCalled) {
        lock.unlock();
        function();
        return {};
    }
    const Id id{.due = due, .number = ++lastNumber_};
    const auto place = functions_.emplace(id, std::move(function)).first;
    if (place == functions_.begin()) changed_.notify_one();
    return id;
}

void Timer::remove(const Id& id) {
    // Destroyed after the lock is released: its captures may run any code.
    decltype(functions_)::node_type removed;
    const std::lock_guard lock(mutex_);
    removed = functions_.extract(id);
}

void Timer::run() {
    std::unique_lock lock(mutex_);
    while (true) {
        if (functions_.empty()) {
            changed_.wait(lock);
            continue;
        }
        const auto due = functions_.begin()->first.due;
        if (Clock::now() < due) {
            changed_.wait_until(lock, due);
            continue;
        }
        auto node = functions_.extract(functions_.begin());
        lock.unlock();
        node.mapped()();
        node = {};
        lock.lock();
    }
}

}  // namespace VanticRestKit::detail
