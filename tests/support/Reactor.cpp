#include "Reactor.h"

#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <utility>

namespace VanticRestKit::test {

Reactor::Reactor() : epoll_(epoll_create1(EPOLL_CLOEXEC)), wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    watch(wake_.descriptor(), EPOLLIN, [this](std::uint32_t) {
        std::uint64_t count = 0;
        static_cast<void>(!read(wake_.descriptor(), &count, sizeof(count)));
    });
}

void Reactor::watch(int descriptor, std::uint32_t events, Ready ready) {
    fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK);
    const std::uint32_t generation = ++generations_;
    watched_[descriptor] = std::make_shared<Watched>(Watched{std::move(ready), generation});
    epoll_event event{};
    event.events = events;
    event.data.u64 = (std::uint64_t{generation} << 32) | static_cast<std::uint32_t>(descriptor);
    epoll_ctl(epoll_.descriptor(), EPOLL_CTL_ADD, descriptor, &event);
}

void Reactor::change(int descriptor, std::uint32_t events) {
    const auto found = watched_.find(descriptor);
    if (found == watched_.end()) return;
    epoll_event event{};
    event.events = events;
    event.data.u64 =
        (std::uint64_t{found->second->generation} << 32) | static_cast<std::uint32_t>(descriptor);
    epoll_ctl(epoll_.descriptor(), EPOLL_CTL_MOD, descriptor, &event);
}

void Reactor::forget(int descriptor) {
    if (watched_.erase(descriptor) > 0) {
        epoll_ctl(epoll_.descriptor(), EPOLL_CTL_DEL, descriptor, nullptr);
    }
}

void Reactor::after(Clock::duration time, std::function<void()> action) {
    timers_.emplace(Clock::now() + time, std::move(action));
}

void Reactor::post(std::function<void()> action) {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(action));
    const std::uint64_t one = 1;
    static_cast<void>(!write(wake_.descriptor(), &one, sizeof(one)));
}

void Reactor::stop() {
    post([this] { isStopping_ = true; });
}

int Reactor::untilNextTimer() const {
    if (timers_.empty()) return -1;
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(timers_.begin()->first - Clock::now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, 1000));
}

void Reactor::runTimers() {
    const auto now = Clock::now();
    while (!timers_.empty() && timers_.begin()->first <= now) {
        const auto action = std::move(timers_.begin()->second);
        timers_.erase(timers_.begin());
        action();
    }
}

void Reactor::runPosted() {
    std::vector<std::function<void()>> posted;
    {
        const std::lock_guard lock(mutex_);
        posted.swap(posted_);
    }
    for (const auto& action : posted) action();
}

void Reactor::run() {
    std::array<epoll_event, 128> events;
    while (!isStopping_) {
        const int count =
            epoll_wait(epoll_.descriptor(), events.data(), static_cast<int>(events.size()), untilNextTimer());
        for (int i = 0; i < count; ++i) {
            const epoll_event& event = events[static_cast<std::size_t>(i)];
            // The socket may have been closed meanwhile, and its number reused.
            const auto found = watched_.find(static_cast<int>(event.data.u64 & 0xffffffffU));
            if (found == watched_.end() || found->second->generation != event.data.u64 >> 32) continue;
            const std::shared_ptr<Watched> kept = found->second;
            kept->ready(event.events);
        }
        runTimers();
        runPosted();
    }
}

}  // namespace VanticRestKit::test
