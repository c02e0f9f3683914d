#pragma once

/// \file
/// `URLRequest`: what to send, and how long to wait for it.

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
/// Every policy except `useProtocolCachePolicy` takes precedence over the request's own Cache-Control about using
/// stored responses; the field is still sent unchanged. A request whose Cache-Control has `no-store` never uses the
/// cache: it neither reads nor stores responses.
enum class URLRequestCachePolicy {
    /// The policy of the session's configuration, by default the rules of HTTP (RFC 9111). The request's own
    /// Cache-Control is obeyed.
    useProtocolCachePolicy = 0,
    /// Always load from the server. The response is stored.
    reloadIgnoringLocalCacheData = 1,
    /// Use a stored response of any age; if there is none, load from the server.
    returnCacheDataElseLoad = 2,
    /// Use a stored response of any age; if there is none, fail with `URLErrorCode::resourceUnavailable`.
    returnCacheDataDontLoad = 3,
    /// Always load from the server, and tell intermediate caches not to respond: the request has "Cache-Control:
    /// no-cache" and "Pragma: no-cache", unless it has its own Cache-Control. The response is stored.
    reloadIgnoringLocalAndRemoteCacheData = 4,
    /// Ask the server whether the stored response has changed, even if it is fresh. The request has "Cache-Control:
    /// max-age=0", unless it has its own Cache-Control. A stored response that is fresh and marked as immutable is used
    /// without asking.
    reloadRevalidatingCacheData = 5,
};

/// Whether a request is made on behalf of the developer or of the user.
enum class URLRequestAttribution { developer = 0, user = 1 };

/// One HTTP request: a value that is cheap to copy.
class VRK_EXPORT URLRequest {
public:
    /// A time in seconds.
    using Seconds = std::chrono::duration<double>;

    /// A GET of `url` without headers and without a body.
    explicit URLRequest(URL url,
                        URLRequestCachePolicy cachePolicy = URLRequestCachePolicy::useProtocolCachePolicy,
                        Seconds timeoutInterval = Seconds(60));

    /// The URL. If it is empty, the request fails with `URLErrorCode::badURL`.
    const std::optional<URL>& url() const noexcept { return url_; }
    /// Replaces the URL.
    void setURL(std::optional<URL> url) { url_ = std::move(url); }

    /// The method, case-sensitive. Never empty: "GET" unless another one was set.
    std::optional<std::string> httpMethod() const { return httpMethod_; }
    /// Sets the method; an empty optional gives "GET". A body does not change the method. A request whose method is not
    /// a token, or is CONNECT, TRACE or PRI, fails with `URLErrorCode::badURL`.
    void setHTTPMethod(std::optional<std::string> method);

    /// Adds a header. Names compare case-insensitively; if the header exists, the value is appended to it after a
    /// comma. A malformed header (a name that is not a token, or a value with a line end or a zero byte) is not added,
    /// and the request fails with `URLErrorCode::badURL`; see `malformedHeaderField()`. Headers that frame the message
    /// are set by the session, and values given here are not sent: Connection, Content-Length, Expect, Keep-Alive,
    /// Proxy-Connection, TE, Trailer, Transfer-Encoding, Upgrade.
    void addValue(std::string_view value, std::string_view forHTTPHeaderField);
    /// Sets a header, replacing all values of that name; an empty optional removes it. Names compare
    /// case-insensitively; for malformed headers see `addValue`. A header that is set again or removed no longer counts
    /// as malformed.
    void setValue(std::optional<std::string_view> value, std::string_view forHTTPHeaderField);
    /// The value of a header; names compare case-insensitively. Empty if there is none.
    std::optional<std::string> value(std::string_view forHTTPHeaderField) const;
    /// The name of the first header that was given with a malformed name or value and has not been set again since, as
    /// it was given; empty if there is none. The value is not stored.
    std::optional<std::string> malformedHeaderField() const;
    /// All headers of the request, without those that the session adds. Each name is spelled as it was first given; no
    /// two names differ only in case.
    const std::map<std::string, std::string>& allHTTPHeaderFields() const noexcept { return headers_; }

    /// The body. If empty, no body is sent; a body of zero bytes is sent as an empty body.
    const std::optional<Data>& httpBody() const noexcept { return httpBody_; }
    /// Replaces the body; empty for none.
    void setHTTPBody(std::optional<Data> body) { httpBody_ = std::move(body); }

    /// The idle time-out in seconds: the request fails with `URLErrorCode::timedOut` if no data is transferred for this
    /// long. Each piece of header, body or upload restarts it, and waiting for a free connection does not count. If it
    /// is not above zero, the session's interval is used.
    Seconds timeoutInterval() const noexcept { return timeoutInterval_; }
    /// Replaces the idle time-out.
    void setTimeoutInterval(Seconds interval) noexcept { timeoutInterval_ = interval; }

    /// The cache policy.
    URLRequestCachePolicy cachePolicy() const noexcept { return cachePolicy_; }
    /// Replaces the cache policy.
    void setCachePolicy(URLRequestCachePolicy policy) noexcept { cachePolicy_ = policy; }

    /// On whose behalf the request is made; this is not sent.
    URLRequestAttribution attribution() const noexcept { return attribution_; }
    /// Replaces the attribution.
    void setAttribution(URLRequestAttribution attribution) noexcept { attribution_ = attribution; }

    /// Whether the session's cookies are added to the request and cookies of its response are stored; true by default.
    /// A Cookie header of the request replaces the session's.
    bool httpShouldHandleCookies() const noexcept { return httpShouldHandleCookies_; }
    /// Sets whether cookies are sent and stored.
    void setHTTPShouldHandleCookies(bool should) noexcept { httpShouldHandleCookies_ = should; }

    /// Whether all of the above are equal; header names compare case-sensitively here.
    friend bool operator==(const URLRequest&, const URLRequest&) = default;

private:
    std::optional<URL> url_;
    std::string httpMethod_ = "GET";
    std::map<std::string, std::string> headers_;
    // Only names: a value may be a secret, and should not be printed in an error message.
    std::vector<std::string> malformedHeaders_;
    std::optional<Data> httpBody_;
    Seconds timeoutInterval_;
    URLRequestCachePolicy cachePolicy_;
    URLRequestAttribution attribution_ = URLRequestAttribution::developer;
    bool httpShouldHandleCookies_ = true;
};

}  // namespace VanticRestKit
