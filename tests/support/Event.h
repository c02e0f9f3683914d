#pragma once

/// \file
/// An event that threads signal and wait for.

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

namespace VanticRestKit::test {

/// Counts its signals. Copies share one event, so a copy in a callback may outlive the test.
class Event {
public:
    /// Adds one signal.
    void signal() const {
        const std::lock_guard lock(state_->mutex);
        ++state_->count;
        state_->changed.notify_all();
    }

    /// Waits until it was signalled `times` times in total. Returns false after half a minute.
    [[nodiscard]] bool wait(int times = 1) const {
        std::unique_lock lock(state_->mutex);
        return state_->changed.wait_for(lock, std::chrono::seconds(30),
                                        [this, times] { return state_->count >= times; });
    }

    /// The number of signals so far.
    int count() const {
        const std::lock_guard lock(state_->mutex);
        return state_->count;
    }

private:
    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        int count = 0;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace VanticRestKit::test
