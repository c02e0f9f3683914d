#pragma once

#include <httplib.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace VanticRestKit::sample {

/// Gives each connection a thread. A connection that is kept alive, or delayed by a fault, occupies its thread. A few
/// of them could block a pool of fixed size.
class WorkerPool : public httplib::TaskQueue {
public:
    void enqueue(std::function<void()> job) override;
    void shutdown() override;

private:
    void work();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> jobs_;
    std::vector<std::thread> threads_;
    std::size_t idle_ = 0;
    bool ending_ = false;
};

}  // namespace VanticRestKit::sample
