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

/// The maximum number of cookies. Beyond it the one that was sent or set longest ago is removed.
struct CookieLimits {
    std::size_t perDomain = 50;
    std::size_t total = 3000;
};

/// The cookies of one storage, without rules and locks: cookies that are set must have been accepted. For one thread at
/// a time.
class CookieStore {
public:
    explicit CookieStore(CookieLimits limits = {}) : limits_(limits) {}

    /// Adds `cookie`, replacing the same cookie and keeping its position in requests; a cookie that has expired at
    /// `now` only removes that one. Returns whether the store then has the cookie.
    bool set(HTTPCookie cookie, Date now);

    /// Whether `cookie`, which was received over http, would take precedence over a Secure one.
    bool wouldHideSecureCookie(const HTTPCookie& cookie, Date now) const;

    /// Removes the cookie that `cookie` would replace.
    void remove(const HTTPCookie& cookie);
    void clear();

    /// All cookies that have not expired at `now`, the oldest first.
    std::vector<HTTPCookie> all(Date now) const;

    /// The cookies for a request to `target`, in the order in which they are sent: longer paths first, and older ones
    /// first for paths of the same length. Counts as a use of them. Valid until the next change.
    std::vector<const HTTPCookie*> matching(const CookieTarget& target, Date now);

    std::size_t count() const noexcept { return count_; }

    /// Whether cookies that are stored in a file have changed since the last call.
    bool takePersistentChange() noexcept;

private:
    struct Entry {
        HTTPCookie cookie{};
        // Counters instead of times: the clock may jump, and many cookies arrive at the same time.
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
