#pragma once

/// \file
/// `CookieJar`: the implementation of an `HTTPCookieStorage`.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/http/cookies/detail/CookieFile.h>
#include <VanticRestKit/platform/http/cookies/detail/CookieStore.h>
#include <VanticRestKit/platform/http/cookies/HTTPCookieStorage.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// Returns the current time.
using CookieClock = Date (*)();

/// The system clock.
Date systemCookieClock();

/// The cookies with their lock, clock and file. Thread-safe; only `flush` waits for the file.
class CookieJar : public std::enable_shared_from_this<CookieJar> {
public:
    CookieJar(CookieClock clock, std::unique_ptr<CookieFile> file);

    /// Makes a storage with a jar; reads the file if one is given.
    static std::shared_ptr<HTTPCookieStorage> storage(CookieClock clock,
                                                      std::optional<HTTPCookieFile> file = std::nullopt);
    /// The jar of a storage.
    static const std::shared_ptr<CookieJar>& of(const HTTPCookieStorage& storage) { return storage.jar_; }

    std::vector<HTTPCookie> all() const;
    std::vector<HTTPCookie> matching(const URL& url);
    bool set(HTTPCookie cookie);
    void remove(const HTTPCookie& cookie);
    void clear();

    /// Whether there are no cookies. Takes no lock, since there are none during most requests.
    bool isEmpty() const noexcept { return count_.load() == 0; }

    /// The value of the Cookie header for a request of `url`; empty if there is no cookie for it.
    std::string header(const URL& url);

    /// Stores the cookies of a response from `url`; `lines` are the values of its Set-Cookie headers. `mainURL` is the
    /// URL of the original request, which was redirected to `url`. Both `sessionPolicy` and the jar's policy must
    /// accept a cookie.
    void receive(const std::vector<std::string>& lines, const URL& url, const URL& mainURL,
                 HTTPCookieAcceptPolicy sessionPolicy);

    HTTPCookieAcceptPolicy policy() const noexcept { return policy_.load(); }
    void setPolicy(HTTPCookieAcceptPolicy policy) noexcept { policy_.store(policy); }

    void flush();

private:
    void load(std::vector<HTTPCookie> cookies);
    void changed();
    void write();

    const CookieClock clock_;
    const std::unique_ptr<CookieFile> file_;
    std::atomic<HTTPCookieAcceptPolicy> policy_ = HTTPCookieAcceptPolicy::always;
    std::atomic<std::size_t> count_ = 0;
    mutable std::mutex mutex_;
    CookieStore store_;
    // Whether a write is scheduled that has not read the cookies yet.
    bool isWriteDue_ = false;
};

}  // namespace VanticRestKit::detail
