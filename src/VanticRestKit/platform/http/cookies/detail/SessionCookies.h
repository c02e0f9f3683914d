#pragma once

/// \file
/// `SessionCookies`: the cookies of a session's requests.

#include <VanticRestKit/platform/http/cookies/HTTPCookieStorage.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

#include <memory>
#include <string>
#include <vector>

namespace VanticRestKit::detail {

class CookieJar;

/// Decides which cookies a session adds to its requests and which it keeps of its answers. Without a storage it does
/// neither. Any thread may call.
class SessionCookies {
public:
    explicit SessionCookies(const URLSessionConfiguration& configuration);

    /// The value of the Cookie header that is added to `request`; empty if none is. None is added to a request that has
    /// one of its own.
    std::string headerFor(const URLRequest& request) const;

    /// Takes the Set-Cookie headers of the answer to `request`, to which redirects led from `original`.
    void receive(const std::vector<std::string>& lines, const URLRequest& request,
                 const URLRequest& original) const;

private:
    const std::shared_ptr<CookieJar> jar_;
    const bool isAdding_;
    const HTTPCookieAcceptPolicy policy_;
};

}  // namespace VanticRestKit::detail
