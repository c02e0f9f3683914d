#pragma once

// The values that a user client reads from its context when an operation starts.

#include <VanticRestKit/Core/ResourceURI.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

#include <functional>
#include <optional>
#include <string>

namespace VanticRestKit::detail {

/// The requests that an operation may need. They are built before the tokens are known and contain a marker in place of
/// a token. A request is empty if the context cannot build it; without a user, all are empty.
struct UserRequests {
    using Route = std::function<ResourceURI(const std::string& uid, SourceSystem source)>;

    std::optional<std::string> uid{};
    /// The request of the operation itself, with a marker for the access token.
    std::optional<URLRequest> data{};
    /// The request for new tokens, with a marker for the refresh token.
    std::optional<URLRequest> refresh{};
    /// The request for the first tokens, which has no token.
    std::optional<URLRequest> firstTokens{};

    /// Reads `context` on the calling thread.
    static UserRequests read(const TrelvoContext& context, const Route& route);
};

/// The request with the marker replaced by `token`.
URLRequest withToken(URLRequest request, const std::string& token);

/// The request without the headers that contain the marker.
URLRequest withoutToken(URLRequest request);

}  // namespace VanticRestKit::detail
