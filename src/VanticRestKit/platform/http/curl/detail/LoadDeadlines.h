#pragma once

/// \file
/// `LoadDeadlines`: the deadlines of a load that no movement puts off.

#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

#include <cstdint>
#include <optional>

namespace VanticRestKit::detail {

class Exchange;
struct Attempt;

/// A deadline of an exchange, as part of it.
struct LoadTimer : Idler {
    explicit LoadTimer(Exchange& timed) : exchange(timed) {}

    Exchange& exchange;
    /// What of the body had come when the timer was started.
    std::uint64_t received = 0;
};

/// Watches the time of each load as a whole, from its start on and in the queue too, and the speed of its body. Without
/// them a server that sends a byte now and then keeps a connection for ever. For the I/O thread only.
class LoadDeadlines {
public:
    struct Overdue {
        Exchange& exchange;
        TransportFault fault;
    };

    explicit LoadDeadlines(const URLSessionConfiguration& configuration);

    /// The load of `exchange` starts.
    void start(Exchange& exchange, TimePoint now);

    /// The body of an answer to `attempt` begins.
    void startBody(const Attempt& attempt, TimePoint now);

    /// The body has ended, or its attempt.
    void endBody(Exchange& exchange);

    /// The load has ended.
    void end(Exchange& exchange);

    /// A load that must not go on, no longer watched; empty if there is none.
    std::optional<Overdue> takeOverdue(TimePoint now);

    /// When to look again; empty if nothing is watched.
    std::optional<TimePoint> next() const;

private:
    std::optional<Overdue> judgeBody(LoadTimer& timer, TimePoint now);

    const Clock::duration wholeInterval_;
    const Clock::duration bodyInterval_;
    const std::uint64_t minBytesPerSecond_;
    IdleDeadlines whole_;
    IdleDeadlines body_;
};

}  // namespace VanticRestKit::detail
