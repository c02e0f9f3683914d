#pragma once

/// \file
/// How a redirect is followed.

#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/http/URLSessionRedirectPolicy.h>
#include <VanticRestKit/platform/url/URL.h>

#include <cstdint>
#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// Whether a response with this status and a Location is a redirect.
constexpr bool isRedirect(std::int64_t status) noexcept {
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

/// The request to `target` after `request` was redirected with `status`.
///
/// 303 changes every method except HEAD to GET, 301 and 302 change POST to GET; such a GET has neither the body nor the
/// headers that describe it. A target of another origin gets only headers that do not identify the user, and none of
/// `heldBack`.
URLRequest redirected(const URLRequest& request, std::int64_t status, const URL& target,
                      const std::vector<std::string>& heldBack = {});

/// What a session does with a redirect.
enum class RedirectAction { follow, deliver, refuse };

/// What `policy` requires for a redirect from `source` to `target`.
RedirectAction redirectAction(const URLSessionRedirectPolicy& policy, const URL& source, const URL& target);

}  // namespace VanticRestKit::detail
