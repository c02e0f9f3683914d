#pragma once

/// \file
/// `URLSessionRedirectPolicy`: which redirects a session follows, and which headers it sends along.

#include <VanticRestKit/platform/dispatch/SharedFunction.h>
#include <VanticRestKit/platform/http/URLRequest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

class HTTPURLResponse;

/// Which redirects a session follows. A redirect that is not followed is delivered as the response to the request, with
/// its status and body.
///
/// Only headers that do not identify the user are sent to another origin: those that describe the body, the `Accept`
/// headers, `Cache-Control`, `Pragma`, `Range`, the conditions (`If-...`) and `User-Agent`. `Authorization`, and
/// headers added by a context or by the session's `httpAdditionalHeaders`, are sent only to the original origin.
struct URLSessionRedirectPolicy {
    /// Which redirects are followed.
    enum class Follow { always, sameOriginOnly, never };
    /// Which redirects are followed.
    Follow follow = Follow::always;

    /// Whether redirects from https to http are allowed. If not, such a redirect makes the request fail with
    /// `URLErrorCode::appTransportSecurityRequiresSecureConnection`.
    bool allowsInsecureTarget = false;

    /// Names of further headers that are not sent to another origin, case-insensitive.
    std::vector<std::string> headersHeldBack{};

    /// Called before each redirect is followed, with the redirect response and the request that would be sent. Returns
    /// the request to send, or an empty value to deliver the redirect as the response. Called on the session's delegate
    /// queue; if several sessions share the function, possibly at the same time. Must not throw. The idle time-out is
    /// stopped meanwhile.
    SharedFunction<std::optional<URLRequest>(std::shared_ptr<const HTTPURLResponse>, URLRequest)>
        willRedirect{};
};

}  // namespace VanticRestKit
