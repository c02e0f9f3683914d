#pragma once

/// \file
/// `Reactor`: handles many sockets on one thread.

#include "Sockets.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <vector>

namespace VanticRestKit::test {

/// Calls back when sockets are ready and when timers expire, always on the thread that runs it. Other threads may only
/// call `post` and `stop`.
class Reactor {
public:
    using Clock = std::chrono::steady_clock;
    /// Called with the epoll events.
    using Ready = std::function<void(std::uint32_t)>;

    Reactor();
    Reactor(const Reactor&) = delete;
    Reactor& operator=(const Reactor&) = delete;

    /// Watches a socket and makes it non-blocking. Call `forget` before closing it.
    void watch(int descriptor, std::uint32_t events, Ready ready);
    /// Changes the events of a watched socket.
    void change(int descriptor, std::uint32_t events);
    void forget(int descriptor);

    /// Calls `action` after `time`.
    void after(Clock::duration time, std::function<void()> action);

    /// Calls `action` soon. For any thread.
    void post(std::function<void()> action);

    /// Runs until `stop`.
    void run();
    /// For any thread.
    void stop();

private:
    struct Watched {
        Ready ready;
        std::uint32_t generation;
    };

    int untilNextTimer() const;
    void runTimers();
    void runPosted();

    Socket epoll_;
    Socket wake_;
    std::unordered_map<int, std::shared_ptr<Watched>> watched_;
    std::uint32_t generations_ = 0;
    std::multimap<Clock::time_point, std::function<void()>> timers_;
    std::mutex mutex_;
    std::vector<std::function<void()>> posted_;
    bool isStopping_ = false;
};

/// Runs a reactor on a separate thread from `start` to destruction. Must be destroyed before the objects that the
/// reactor calls.
class ReactorThread {
public:
    explicit ReactorThread(Reactor& reactor) : reactor_(reactor) {}
    ~ReactorThread() {
        if (!thread_.joinable()) return;
        reactor_.stop();
        thread_.join();
    }
    ReactorThread(const ReactorThread&) = delete;
    ReactorThread& operator=(const ReactorThread&) = delete;

    void start() {
        thread_ = std::thread([this] { reactor_.run(); });
    }

private:
    Reactor& reactor_;
    std::thread thread_;
};

}  // namespace VanticRestKit::test
