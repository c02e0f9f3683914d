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

/// Decides which cookies a session adds to requests and which it stores from responses. Without a storage it does
/// neither. Thread-safe.
class SessionCookies {
public:
    explicit SessionCookies(const URLSessionConfiguration& configuration);

    /// The value of the Cookie header to add to `request`; empty if none is added. None is added to a request that has
    /// its own.
    std::string headerFor(const URLRequest& request) const;

    /// Stores the Set-Cookie headers of the response to `request`, which resulted from redirects of `original`.
    void receive(const std::vector<std::string>& lines, const URLRequest& request,
                 const URLRequest& original) const;

private:
    const std::shared_ptr<CookieJar> jar_;
    const bool isAdding_;
    const HTTPCookieAcceptPolicy policy_;
};

}  // namespace VanticRestKit::detail
