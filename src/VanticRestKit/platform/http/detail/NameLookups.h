#pragma once

/// \file
/// `NameLookups`: limits how many names are looked up at once.

#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace VanticRestKit::detail {

/// Counts the running lookups of host names. Each takes a thread and three descriptors in libcurl, so a session limits
/// their number; the loads of other names wait in the queue. For one thread.
class NameLookups {
public:
    /// The host of an origin.
    class Name {
    public:
        /// `origin` has the form of `originOf`. Its host may be an address, which is not looked up.
        explicit Name(std::string_view origin);

    private:
        friend class NameLookups;

        bool isAddress_;
        /// Until when libcurl has the address cached.
        TimePoint knownUntil_{};
        std::size_t pending_ = 0;
        /// Increased when all pending lookups end at once, which invalidates their tickets.
        std::uint64_t generation_ = 1;
    };

    /// Identifies one load while it may be looking up its name.
    class Ticket {
    private:
        friend class NameLookups;

        std::uint64_t generation_ = 0;
    };

    explicit NameLookups(std::size_t maxAtOnce);

    /// Whether a load that needs a lookup would have to wait.
    bool areAllTaken() const noexcept { return running_ >= maxAtOnce_; }

    /// Whether a load of `name` may start now.
    bool mayBegin(const Name& name, TimePoint now) const noexcept {
        return !areAllTaken() || !isNeeded(name, now);
    }

    /// Whether the address of `name` is known, because it was looked up or `name` is an address.
    static bool knows(const Name& name, TimePoint now) noexcept { return !isNeeded(name, now); }
    /// The address of `name` may have changed.
    static void forget(Name& name) noexcept { name.knownUntil_ = {}; }

    /// A load of `name` starts, and may look it up.
    void begin(Name& name, Ticket& ticket, TimePoint now) noexcept;

    /// The load no longer needs a lookup: it has ended, or was sent on an open connection.
    void end(Name& name, Ticket& ticket) noexcept;

    /// A lookup of `name` has succeeded. The address is cached until `until`, so no other load of the name needs a
    /// lookup.
    void learn(Name& name, TimePoint until) noexcept;

private:
    static bool isNeeded(const Name& name, TimePoint now) noexcept {
        return !name.isAddress_ && name.knownUntil_ <= now;
    }

    const std::size_t maxAtOnce_;
    std::size_t running_ = 0;
};

}  // namespace VanticRestKit::detail
