#pragma once

/// \file
/// `LoadDeadlines`: the deadlines of a load that activity does not extend.

#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

#include <cstdint>
#include <optional>

namespace VanticRestKit::detail {

class Exchange;
struct Attempt;

/// A deadline of an exchange, of which it is a member.
struct LoadTimer : Idler {
    explicit LoadTimer(Exchange& timed) : exchange(timed) {}

    Exchange& exchange;
    /// The size of the received body when the timer was started.
    std::uint64_t received = 0;
};

/// Watches the total time of each load, including queueing, and the speed of its body. Without them, a server that
/// sends a byte now and then would occupy a connection for ever. For the I/O thread only.
class LoadDeadlines {
public:
    struct Overdue {
        Exchange& exchange;
        TransportFault fault;
    };

    explicit LoadDeadlines(const URLSessionConfiguration& configuration);

    /// The load of `exchange` starts.
    void start(Exchange& exchange, TimePoint now);

    /// The body of the response to `attempt` begins.
    void startBody(const Attempt& attempt, TimePoint now);

    /// The body or its attempt has ended.
    void endBody(Exchange& exchange);

    /// The load has ended.
    void end(Exchange& exchange);

    /// A load that has exceeded a deadline and is no longer watched; empty if there is none.
    std::optional<Overdue> takeOverdue(TimePoint now);

    /// When to check again; empty if nothing is watched.
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
