#pragma once

/// \file
/// `IdleDeadlines`: which transfers have not moved for too long.

#include <chrono>
#include <optional>
#include <set>
#include <utility>

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
};

/// Keeps watch over idlers; does not own them.
class IdleDeadlines {
public:
    /// Starts the watch over `idler` at `now`.
    void watch(Idler& idler, TimePoint now) {
        idler.lastMoved_ = now;
        note(idler);
    }

    /// Ends the watch; does nothing to one that is not watched.
    void forget(Idler& idler) { noted_.erase({idler.noted_, &idler}); }

    /// An idler whose time is up at `now`, no longer watched; null if there is none.
    Idler* takeExpired(TimePoint now) {
        while (!noted_.empty() && noted_.begin()->first <= now) {
            Idler& idler = *noted_.begin()->second;
            noted_.erase(noted_.begin());
            if (idler.deadline() <= now) return &idler;
            note(idler);
        }
        return nullptr;
    }

    /// Watches on over an idler that `takeExpired` gave and that has moved all the same.
    void resume(Idler& idler) { note(idler); }

    /// When to look again; empty if nobody is watched.
    std::optional<TimePoint> next() const {
        if (noted_.empty()) return std::nullopt;
        return noted_.begin()->first;
    }

private:
    void note(Idler& idler) {
        idler.noted_ = idler.deadline();
        noted_.emplace(idler.noted_, &idler);
    }

    std::set<std::pair<TimePoint, Idler*>> noted_;
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
