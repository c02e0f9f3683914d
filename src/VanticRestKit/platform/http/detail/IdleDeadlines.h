#pragma once

/// \file
/// `IdleDeadlines`: finds transfers that have been idle for too long.

#include <chrono>
#include <optional>

namespace VanticRestKit::detail {

using Clock = std::chrono::steady_clock;
using TimePoint = Clock::time_point;

/// An object whose activity `IdleDeadlines` watches.
class Idler {
public:
    /// Sets how long it may be idle.
    void setInterval(Clock::duration interval) noexcept { interval_ = interval; }
    Clock::duration interval() const noexcept { return interval_; }

    /// Records activity. Very cheap: the position in the list is updated only when the old deadline comes.
    void moved(TimePoint when) noexcept {
        if (when > lastMoved_) lastMoved_ = when;
    }
    TimePoint lastMoved() const noexcept { return lastMoved_; }

    /// When it expires unless there is activity before.
    TimePoint deadline() const noexcept { return lastMoved_ + interval_; }

private:
    friend class IdleDeadlines;

    Clock::duration interval_{};
    TimePoint lastMoved_{};
    TimePoint listedDeadline_{};
    // The neighbours in the list; null if it is not watched.
    Idler* prev_ = nullptr;
    Idler* next_ = nullptr;
};

/// Watches idlers; does not own them.
///
/// They form a circular list in the order of their deadlines. A new one is inserted by searching from the end, which
/// succeeds at once if all have the same interval.
class IdleDeadlines {
public:
    IdleDeadlines() { sentinel_.prev_ = sentinel_.next_ = &sentinel_; }
    IdleDeadlines(const IdleDeadlines&) = delete;
    IdleDeadlines& operator=(const IdleDeadlines&) = delete;

    /// Starts to watch `idler`, which is not watched yet, at `now`. It must not move in memory until the watch ends.
    void watch(Idler& idler, TimePoint now) {
        idler.lastMoved_ = now;
        insert(idler);
    }

    /// Ends the watch; has no effect if `idler` is not watched.
    void forget(Idler& idler) {
        if (idler.next_ == nullptr) return;
        idler.prev_->next_ = idler.next_;
        idler.next_->prev_ = idler.prev_;
        idler.prev_ = idler.next_ = nullptr;
    }

    /// Removes and returns an idler that has expired at `now`; null if there is none.
    Idler* takeExpired(TimePoint now) {
        while (!isEmpty() && sentinel_.next_->listedDeadline_ <= now) {
            Idler& idler = *sentinel_.next_;
            forget(idler);
            if (idler.deadline() <= now) return &idler;
            insert(idler);
        }
        return nullptr;
    }

    /// Continues to watch an idler that `takeExpired` returned, but which turned out to be active.
    void resume(Idler& idler) { insert(idler); }

    /// Limits the interval of a watched `idler` to `interval`.
    void shorten(Idler& idler, Clock::duration interval) {
        if (interval >= idler.interval() || idler.next_ == nullptr) return;
        idler.setInterval(interval);
        forget(idler);
        insert(idler);
    }

    /// When to check again; empty if nothing is watched.
    std::optional<TimePoint> next() const {
        if (isEmpty()) return std::nullopt;
        return sentinel_.next_->listedDeadline_;
    }

private:
    bool isEmpty() const { return sentinel_.next_ == &sentinel_; }

    void insert(Idler& idler) {
        idler.listedDeadline_ = idler.deadline();
        Idler* last = sentinel_.prev_;
        while (last != &sentinel_ && last->listedDeadline_ > idler.listedDeadline_) last = last->prev_;
        idler.prev_ = last;
        idler.next_ = last->next_;
        last->next_->prev_ = &idler;
        last->next_ = &idler;
    }

    // The sentinel of the list.
    Idler sentinel_;
};

/// `seconds` as an interval that can be added to any time of the clock without overflow; `fallback` if it is not above
/// zero.
inline Clock::duration idleInterval(std::chrono::duration<double> seconds,
                                    std::chrono::duration<double> fallback) {
    using Seconds = std::chrono::duration<double>;
    constexpr Seconds shortest{0.001};
    constexpr Seconds longest{100.0 * 365 * 24 * 3600};
    // Written so that NaN selects the next value.
    const Seconds wanted = seconds > Seconds(0) ? seconds : fallback > Seconds(0) ? fallback : Seconds(60);
    return std::chrono::duration_cast<Clock::duration>(wanted < shortest  ? shortest
                                                       : wanted > longest ? longest
                                                                          : wanted);
}

}  // namespace VanticRestKit::detail
