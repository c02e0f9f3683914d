#pragma once

/// \file
/// `NameLookups`: how many names are looked up at once.

#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace VanticRestKit::detail {

/// Counts the look-ups of host names that are under way. libcurl gives each a thread and three descriptors, so a session
/// lets only so many begin; the loads of other names wait in the queue. For one thread.
class NameLookups {
public:
    /// A host, by one of its origins.
    class Name {
    public:
        /// `origin` as `originOf` gives it. The host of one may be an address, which is not looked up.
        explicit Name(std::string_view origin);

    private:
        friend class NameLookups;

        bool isAddress_;
        /// Until when libcurl has the address.
        TimePoint knownUntil_{};
        std::size_t pending_ = 0;
        /// Grows when all pending look-ups end at once, so that their tickets are worth nothing any more.
        std::uint64_t generation_ = 1;
    };

    /// The part of one load in this, while it may have its name looked up.
    class Ticket {
    private:
        friend class NameLookups;

        std::uint64_t generation_ = 0;
    };

    explicit NameLookups(std::size_t maxAtOnce);

    /// Whether a load that has to look up a name would have to wait.
    bool areAllTaken() const noexcept { return underWay_ >= maxAtOnce_; }

    /// Whether a load of `name` may go now.
    bool mayBegin(const Name& name, TimePoint now) const noexcept {
        return !areAllTaken() || !isNeeded(name, now);
    }

    /// Whether the address of `name` is known, because it was found or is the name itself.
    static bool knows(const Name& name, TimePoint now) noexcept { return !isNeeded(name, now); }
    /// The address of `name` may be another one now.
    static void forget(Name& name) noexcept { name.knownUntil_ = {}; }

    /// A load of `name` goes, and may have it looked up.
    void begin(Name& name, Ticket& ticket, TimePoint now) noexcept;

    /// The load needs no look-up any more: it has ended, or was sent on a connection that was open.
    void end(Name& name, Ticket& ticket) noexcept;

    /// A look-up of `name` has ended well. The address is kept until then; whoever waits for another look-up of the name
    /// has the address as well, or waits for the connection.
    void learn(Name& name, TimePoint until) noexcept;

private:
    static bool isNeeded(const Name& name, TimePoint now) noexcept {
        return !name.isAddress_ && name.knownUntil_ <= now;
    }

    const std::size_t maxAtOnce_;
    std::size_t underWay_ = 0;
};

}  // namespace VanticRestKit::detail
