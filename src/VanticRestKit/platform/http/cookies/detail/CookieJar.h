#pragma once

/// \file
/// `CookieJar`: what is inside an `HTTPCookieStorage`.

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

/// Where a jar reads the time.
using CookieClock = Date (*)();

/// The time of the system.
Date systemCookieClock();

/// The cookies with their lock, their clock and their file. Any thread may call; nothing waits for the file.
class CookieJar : public std::enable_shared_from_this<CookieJar> {
public:
    CookieJar(CookieClock clock, std::unique_ptr<CookieFile> file);

    /// A storage with a jar; reads the file if there is one.
    static std::shared_ptr<HTTPCookieStorage> storage(CookieClock clock,
                                                      std::optional<HTTPCookieFile> file = std::nullopt);
    /// The jar of a storage.
    static const std::shared_ptr<CookieJar>& of(const HTTPCookieStorage& storage) { return storage.jar_; }

    std::vector<HTTPCookie> all() const;
    std::vector<HTTPCookie> matching(const URL& url);
    bool set(HTTPCookie cookie);
    void remove(const HTTPCookie& cookie);
    void clear();

    /// Whether there is no cookie at all. Takes no lock: most requests are made while there is none.
    bool isEmpty() const noexcept { return count_.load() == 0; }

    /// The value of the Cookie header of a request of `url`; empty if there is no cookie for it.
    std::string header(const URL& url);

    /// Takes what an answer to a request of `url` set, each of `lines` the value of one Set-Cookie header. The request
    /// was made for `mainURL`, from which redirects led to `url`. Both `sessionPolicy` and the jar's must accept.
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
    // Whether a write is to come that has not looked at the cookies yet.
    bool isWriteDue_ = false;
};

}  // namespace VanticRestKit::detail
