#pragma once

/// \file
/// `URLSessionRedirectPolicy`: which redirects a session follows, and with what.

#include <VanticRestKit/platform/dispatch/SharedFunction.h>
#include <VanticRestKit/platform/http/URLRequest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

class HTTPURLResponse;

/// Which redirects a session follows. One that is not followed is the answer of the request, with its status and its
/// body.
///
/// Across origins only headers cross that say nothing of who is asking: those of the body, `Accept` and its kin,
/// `Cache-Control`, `Pragma`, `Range`, the conditions (`If-...`) and `User-Agent`. `Authorization` and whatever a context
/// or the session's `httpAdditionalHeaders` added stay with their origin.
struct URLSessionRedirectPolicy {
    /// Which redirects are followed.
    enum class Follow { always, sameOriginOnly, never };
    /// Which redirects are followed.
    Follow follow = Follow::always;

    /// Whether https may lead to http. If not, such a redirect fails the request with
    /// `URLErrorCode::appTransportSecurityRequiresSecureConnection`.
    bool allowsInsecureTarget = false;

    /// Names of further headers that do not cross to another origin, compared without case.
    std::vector<std::string> headersHeldBack{};

    /// Asked before each redirect that is followed, with the answer that redirects and the request that would go out.
    /// Gives the request to send, or nothing for the redirect to be the answer. Called on the session's delegate queue,
    /// from several sessions at once if they share it; must not throw. The request uses no idle time meanwhile.
    SharedFunction<std::optional<URLRequest>(std::shared_ptr<const HTTPURLResponse>, URLRequest)>
        willRedirect{};
};

}  // namespace VanticRestKit
