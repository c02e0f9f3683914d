#pragma once

/// \file
/// `HTTPCacheStatus`: what the session's cache did for a response.

#include <VanticRestKit/Visibility.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// Where a response came from.
enum class AnswerSource {
    network,      ///< From the server.
    cache,        ///< From the cache, without asking the server.
    revalidated,  ///< From the cache, after the server confirmed that it is still valid.
    stale,        ///< From the cache although it is stale; the server was not asked, or the request failed.
};

/// "network", "cache", "revalidated" or "stale".
inline const char* nameOf(AnswerSource source) noexcept {
    switch (source) {
        case AnswerSource::network: return "network";
        case AnswerSource::cache: return "cache";
        case AnswerSource::revalidated: return "revalidated";
        case AnswerSource::stale: return "stale";
    }
    return "network";
}

/// What the session's cache did for a response.
struct VRK_EXPORT HTTPCacheStatus {
    /// Where a response came from.
    using Source = AnswerSource;
    /// Why the request was forwarded to the server: the values of `fwd` (RFC 9211) that apply to a client's own cache.
    enum class Forwarding {
        /// It was not forwarded.
        none,
        /// The session has no cache, or the policy bypasses it.
        bypass,
        /// Responses to this method are not stored.
        method,
        /// Nothing is stored for this URL.
        uriMiss,
        /// The stored responses for this URL vary by header fields that have other values in this request.
        varyMiss,
        /// The request's own header fields or its policy require validation by the server.
        request,
        /// The stored response is stale.
        stale,
        /// The stored response does not contain the requested range.
        partial,
    };

    /// Where the response came from.
    Source source = Source::network;
    /// Why the request was forwarded to the server.
    Forwarding forwarding = Forwarding::bypass;
    /// Whether the session has a cache.
    bool hasCache = false;
    /// The status of the server's response; empty if the request was not forwarded or got no response.
    std::optional<std::int64_t> forwardedStatus{};
    /// How long a response from the cache stays fresh; negative if it is stale. Empty for other responses.
    std::optional<std::chrono::seconds> timeToLive{};
    /// Whether the server's response was stored.
    bool isStored = false;

    /// The session's member of the field Cache-Status (RFC 9211), such as "VanticRestKit; hit; ttl=40" or
    /// "VanticRestKit; fwd=stale; fwd-status=304; stored". Empty without a cache.
    std::optional<std::string> text() const;

    friend bool operator==(const HTTPCacheStatus&, const HTTPCacheStatus&) = default;
};

}  // namespace VanticRestKit
