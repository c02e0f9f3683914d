#pragma once

// What a user client reads from its context when an operation starts.

#include <VanticRestKit/Core/ResourceURI.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

#include <functional>
#include <optional>
#include <string>

namespace VanticRestKit::detail {

/// The requests that an operation may need. They are built while its tokens are not known yet, with a marker in the
/// place of a token. One that the context does not build is empty; without a user all of them are.
struct UserRequests {
    using Route = std::function<ResourceURI(const std::string& uid, SourceSystem source)>;

    std::optional<std::string> uid{};
    /// The request of the operation itself, with a marker for the access token.
    std::optional<URLRequest> data{};
    /// For new tokens, with a marker for the refresh token.
    std::optional<URLRequest> refresh{};
    /// For the first tokens, without a token.
    std::optional<URLRequest> firstTokens{};

    /// Reads `context` on the calling thread.
    static UserRequests read(const TrelvoContext& context, const Route& route);
};

/// The request with `token` in the place of the marker.
URLRequest withToken(URLRequest request, const std::string& token);

/// The request without the headers that have the marker.
URLRequest withoutToken(URLRequest request);

}  // namespace VanticRestKit::detail
