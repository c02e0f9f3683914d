#include "server/WorkerPool.h"

namespace VanticRestKit::sample {

namespace {
constexpr std::size_t mostThreads = 4096;
}

void WorkerPool::enqueue(std::function<void()> job) {
    const std::lock_guard lock(mutex_);
    jobs_.push_back(std::move(job));
    if (idle_ < jobs_.size() && threads_.size() < mostThreads) {
        threads_.emplace_back([this] { work(); });
    }
    changed_.notify_one();
}

void WorkerPool::shutdown() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    for (auto& thread : threads_) thread.join();
}

void WorkerPool::work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        ++idle_;
        changed_.wait(lock, [this] { return !jobs_.empty() || ending_; });
        --idle_;
        if (jobs_.empty()) return;
        auto job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        job();
        lock.lock();
    }
}

}  // namespace VanticRestKit::sample
