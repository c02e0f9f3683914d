#pragma once

/// \file
/// Waits for something that another thread does.

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

namespace VanticRestKit::test {

/// Counts how often something has happened. Copies are one event; a copy in a callback may outlive the test.
class Event {
public:
    /// It has happened once more.
    void signal() const {
        const std::lock_guard lock(state_->mutex);
        ++state_->count;
        state_->changed.notify_all();
    }

    /// Waits until it has happened `times` times in all. Whether it did within half a minute.
    [[nodiscard]] bool wait(int times = 1) const {
        std::unique_lock lock(state_->mutex);
        return state_->changed.wait_for(lock, std::chrono::seconds(30),
                                        [this, times] { return state_->count >= times; });
    }

    /// How often it has happened by now.
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
