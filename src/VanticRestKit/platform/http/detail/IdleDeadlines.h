#pragma once

/// \file
/// `IdleDeadlines`: which transfers have not moved for too long.

#include <chrono>
#include <optional>

namespace VanticRestKit::detail {

using Clock = std::chrono::steady_clock;
using TimePoint = Clock::time_point;

/// What `IdleDeadlines` watches.
class Idler {
public:
    /// Sets how long nothing may move.
    void setInterval(Clock::duration interval) noexcept { interval_ = interval; }
    Clock::duration interval() const noexcept { return interval_; }

    /// Something moved. Costs next to nothing: the deadline itself is moved when it comes.
    void moved(TimePoint when) noexcept {
        if (when > lastMoved_) lastMoved_ = when;
    }
    TimePoint lastMoved() const noexcept { return lastMoved_; }

    /// When the time is up, unless something moves before.
    TimePoint deadline() const noexcept { return lastMoved_ + interval_; }

private:
    friend class IdleDeadlines;

    Clock::duration interval_{};
    TimePoint lastMoved_{};
    TimePoint noted_{};
    // The neighbours in the watcher's list; null for one that is not watched.
    Idler* before_ = nullptr;
    Idler* behind_ = nullptr;
};

/// Keeps watch over idlers; does not own them.
///
/// They stand in a ring in the order of their deadlines. A new one is looked a place for from the end on,
/// which it finds at once where all have the same interval.
class IdleDeadlines {
public:
    IdleDeadlines() { ring_.before_ = ring_.behind_ = &ring_; }
    IdleDeadlines(const IdleDeadlines&) = delete;
    IdleDeadlines& operator=(const IdleDeadlines&) = delete;

    /// Starts the watch over `idler`, which is not watched yet, at `now`. It stays where it is until the watch
    /// ends.
    void watch(Idler& idler, TimePoint now) {
        idler.lastMoved_ = now;
        note(idler);
    }

    /// Ends the watch; does nothing to one that is not watched.
    void forget(Idler& idler) {
        if (idler.behind_ == nullptr) return;
        idler.before_->behind_ = idler.behind_;
        idler.behind_->before_ = idler.before_;
        idler.before_ = idler.behind_ = nullptr;
    }

    /// An idler whose time is up at `now`, no longer watched; null if there is none.
    Idler* takeExpired(TimePoint now) {
        while (!isEmpty() && ring_.behind_->noted_ <= now) {
            Idler& idler = *ring_.behind_;
            forget(idler);
            if (idler.deadline() <= now) return &idler;
            note(idler);
        }
        return nullptr;
    }

    /// Watches on over an idler that `takeExpired` gave and that has moved all the same.
    void resume(Idler& idler) { note(idler); }

    /// Gives a watched `idler` no more than `interval` from its last movement on.
    void shorten(Idler& idler, Clock::duration interval) {
        if (interval >= idler.interval() || idler.behind_ == nullptr) return;
        idler.setInterval(interval);
        forget(idler);
        note(idler);
    }

    /// When to look again; empty if nobody is watched.
    std::optional<TimePoint> next() const {
        if (isEmpty()) return std::nullopt;
        return ring_.behind_->noted_;
    }

private:
    bool isEmpty() const { return ring_.behind_ == &ring_; }

    void note(Idler& idler) {
        idler.noted_ = idler.deadline();
        Idler* last = ring_.before_;
        while (last != &ring_ && last->noted_ > idler.noted_) last = last->before_;
        idler.before_ = last;
        idler.behind_ = last->behind_;
        last->behind_->before_ = &idler;
        last->behind_ = &idler;
    }

    // Its ends are neighbours of this one, which is nobody's.
    Idler ring_;
};

/// `seconds` as an interval that can be added to any time of the clock; `fallback` where it is not above
/// zero.
inline Clock::duration idleInterval(std::chrono::duration<double> seconds,
                                    std::chrono::duration<double> fallback) {
    using Seconds = std::chrono::duration<double>;
    constexpr Seconds shortest{0.001};
    constexpr Seconds longest{100.0 * 365 * 24 * 3600};
    // Written so that a value which is no number falls through to the next.
    const Seconds wanted = seconds > Seconds(0) ? seconds : fallback > Seconds(0) ? fallback : Seconds(60);
    return std::chrono::duration_cast<Clock::duration>(wanted < shortest  ? shortest
                                                       : wanted > longest ? longest
                                                                          : wanted);
}

}  // namespace VanticRestKit::detail
