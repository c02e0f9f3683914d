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

/// Whether an answer of `status` that names another place is to be followed there.
constexpr bool isRedirect(std::int64_t status) noexcept {
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

/// The request that goes to `target` after `request` was answered with `status`.
///
/// 303 turns every method but HEAD into GET, 301 and 302 turn POST into GET; such a GET has neither the body
/// nor the headers that told of it. A target of another origin gets only headers that say nothing of who is asking, and
/// none of `heldBack`.
URLRequest redirected(const URLRequest& request, std::int64_t status, const URL& target,
                      const std::vector<std::string>& heldBack = {});

/// What a session does with a redirect.
enum class RedirectAction { follow, deliver, refuse };

/// What `policy` says of a redirect from `source` to `target`.
RedirectAction redirectAction(const URLSessionRedirectPolicy& policy, const URL& source, const URL& target);

}  // namespace VanticRestKit::detail
