#pragma once

/// \file
/// `CookieStore`: the cookies of one storage, found by host.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/http/cookies/detail/CookieHost.h>
#include <VanticRestKit/platform/http/cookies/HTTPCookie.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// How many cookies there are at most. Above it the one that was sent or set longest ago is removed.
struct CookieLimits {
    std::size_t perDomain = 50;
    std::size_t total = 3000;
};

/// The cookies of one storage. Neither rules nor locks: what is set has been accepted. For one thread at a time.
class CookieStore {
public:
    explicit CookieStore(CookieLimits limits = {}) : limits_(limits) {}

    /// Adds `cookie` in place of the same one of earlier, whose position in requests it takes; a cookie that has expired
    /// at `now` only removes that one. Returns whether the store has the cookie then.
    bool set(HTTPCookie cookie, Date now);

    /// Whether `cookie`, which came over http, would take precedence over one that is sent over https only.
    bool wouldHideSecureCookie(const HTTPCookie& cookie, Date now) const;

    /// Removes the cookie that `cookie` would replace.
    void remove(const HTTPCookie& cookie);
    void clear();

    /// All cookies that have not expired at `now`, the oldest first.
    std::vector<HTTPCookie> all(Date now) const;

    /// The cookies that a request to `target` gets, in the order in which it gets them: those of longer paths first, of
    /// paths of one length the older first. Counts as a use of them. Valid until the next change.
    std::vector<const HTTPCookie*> matching(const CookieTarget& target, Date now);

    std::size_t count() const noexcept { return count_; }

    /// Whether cookies that outlive the process have changed since the last call.
    bool takePersistentChange() noexcept;

private:
    struct Entry {
        HTTPCookie cookie{};
        // Counters and not times: the clock may jump, and many cookies arrive at once.
        std::uint64_t created = 0;
        std::uint64_t used = 0;
    };
    using Entries = std::vector<Entry>;
    using Domains = std::map<std::string, Entries, std::less<>>;

    void note(const HTTPCookie& changed) noexcept;
    void removeExpired(Entries& entries, Date now);
    void erase(Entries& entries, Entries::iterator entry);
    void limitDomain(Entries& entries, Date now);
    void limitTotal(Date now);
    void dropEmptyDomains();

    const CookieLimits limits_;
    Domains domains_;
    std::size_t count_ = 0;
    std::uint64_t counter_ = 0;
    bool hasPersistentChange_ = false;
};

}  // namespace VanticRestKit::detail
