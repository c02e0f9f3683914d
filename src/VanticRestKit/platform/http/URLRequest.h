#pragma once

/// \file
/// `URLRequest`: what is to be sent, and how long to wait for it.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/Visibility.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit {

/// How a request uses the session's cache.
///
/// Every policy but `useProtocolCachePolicy` takes precedence over the request's own Cache-Control where the two
/// disagree about the use of what is stored; the field is sent as it is all the same. A Cache-Control with `no-store`
/// always keeps the request away from the cache: it neither looks there nor leaves anything there.
enum class URLRequestCachePolicy {
    /// What the session's configuration says, which by default is: as HTTP says (RFC 9111). The request's own
    /// Cache-Control is obeyed.
    useProtocolCachePolicy = 0,
    /// The server is asked. Its answer is stored.
    reloadIgnoringLocalCacheData = 1,
    /// A stored answer of any age will do; without one the server is asked.
    returnCacheDataElseLoad = 2,
    /// A stored answer of any age will do; without one the request fails with `URLErrorCode::resourceUnavailable`.
    returnCacheDataDontLoad = 3,
    /// The server is asked, and caches on the way are told not to answer: the request has "Cache-Control: no-cache" and
    /// "Pragma: no-cache", unless it has a Cache-Control of its own. Its answer is stored.
    reloadIgnoringLocalAndRemoteCacheData = 4,
    /// The server is asked whether what is stored has changed, also if that is fresh, and the request has
    /// "Cache-Control: max-age=0", unless it has a Cache-Control of its own. A stored answer that is fresh and marked as
    /// immutable is used without asking.
    reloadRevalidatingCacheData = 5,
};

/// On whose behalf a request is made.
enum class URLRequestAttribution { developer = 0, user = 1 };

/// One HTTP request: a value, copied freely and cheaply.
class VRK_EXPORT URLRequest {
public:
    /// A time in seconds.
    using Seconds = std::chrono::duration<double>;

    /// A GET of `url` without headers and without a body.
    explicit URLRequest(URL url,
                        URLRequestCachePolicy cachePolicy = URLRequestCachePolicy::useProtocolCachePolicy,
                        Seconds timeoutInterval = Seconds(60));

    /// Where the request goes. Empty makes the request fail with `URLErrorCode::badURL`.
    const std::optional<URL>& url() const noexcept { return url_; }
    /// Replaces the address.
    void setURL(std::optional<URL> url) { url_ = std::move(url); }

    /// The method, with its case. Never empty: "GET" where nothing else was set.
    std::optional<std::string> httpMethod() const { return httpMethod_; }
    /// Sets the method; an empty optional gives "GET". A body does not change the method. A session fails a
    /// request whose method is no token, or is CONNECT, TRACE or PRI, with `URLErrorCode::badURL`.
    void setHTTPMethod(std::optional<std::string> method);

    /// Adds a header. Names compare without case; the value of a name that is there already is joined to it
    /// with a comma. A pair that cannot stand in a request (a name that is no token, a value with a line end
    /// or a zero byte) is left out, and a session fails the request with `URLErrorCode::badURL`; see
    /// `malformedHeaderField()`. What frames the message is the session's own and does not go out from
    /// here: Connection, Content-Length, Expect, Keep-Alive, Proxy-Connection, TE, Trailer,
    /// Transfer-Encoding, Upgrade.
    void addValue(std::string_view value, std::string_view forHTTPHeaderField);
    /// Sets a header in place of all values of that name; an empty optional removes it. Names compare without
    /// case; for a pair that cannot stand in a request see `addValue`. A header that is set anew, or removed, is
    /// no longer malformed.
    void setValue(std::optional<std::string_view> value, std::string_view forHTTPHeaderField);
    /// The value of a header, its name compared without case. Empty where there is none.
    std::optional<std::string> value(std::string_view forHTTPHeaderField) const;
    /// The name of the first header that was given with a malformed name or value and not set anew since, as it
    /// was given; empty if there is none. Its value is not kept.
    std::optional<std::string> malformedHeaderField() const;
    /// All headers of the request, without those that the session adds. Each name in the spelling that came
    /// first; no two names are the same without case.
    const std::map<std::string, std::string>& allHTTPHeaderFields() const noexcept { return headers_; }

    /// The body. Empty: none is sent. A body of no bytes is present and is sent as such.
    const std::optional<Data>& httpBody() const noexcept { return httpBody_; }
    /// Replaces the body; empty for none.
    void setHTTPBody(std::optional<Data> body) { httpBody_ = std::move(body); }

    /// How long nothing at all may move, in seconds, before the request fails with `URLErrorCode::timedOut`:
    /// each piece of header, body or upload starts it anew, and waiting for a free connection does not count.
    /// Where it is not above zero the session's own interval counts.
    Seconds timeoutInterval() const noexcept { return timeoutInterval_; }
    /// Replaces the time for which nothing may move.
    void setTimeoutInterval(Seconds interval) noexcept { timeoutInterval_ = interval; }

    /// How the cache is used.
    URLRequestCachePolicy cachePolicy() const noexcept { return cachePolicy_; }
    /// Replaces how the cache is used.
    void setCachePolicy(URLRequestCachePolicy policy) noexcept { cachePolicy_ = policy; }

    /// On whose behalf the request is made; it is not sent.
    URLRequestAttribution attribution() const noexcept { return attribution_; }
    /// Replaces who the request is made for.
    void setAttribution(URLRequestAttribution attribution) noexcept { attribution_ = attribution; }

    /// Whether the session's cookies are added to the request, and those of its answer stored; true at first. A Cookie
    /// header of the request's own goes out in place of the session's.
    bool httpShouldHandleCookies() const noexcept { return httpShouldHandleCookies_; }
    /// Replaces whether cookies are sent and kept.
    void setHTTPShouldHandleCookies(bool should) noexcept { httpShouldHandleCookies_ = should; }

    /// Whether all of the above are equal; header names compare with their case here.
    friend bool operator==(const URLRequest&, const URLRequest&) = default;

private:
    std::optional<URL> url_;
    std::string httpMethod_ = "GET";
    std::map<std::string, std::string> headers_;
    // Names alone: a value may be a secret, and what cannot be sent should not be printed either.
    std::vector<std::string> malformedHeaders_;
    std::optional<Data> httpBody_;
    Seconds timeoutInterval_;
    URLRequestCachePolicy cachePolicy_;
    URLRequestAttribution attribution_ = URLRequestAttribution::developer;
    bool httpShouldHandleCookies_ = true;
};

}  // namespace VanticRestKit
