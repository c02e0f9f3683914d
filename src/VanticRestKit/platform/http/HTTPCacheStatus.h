#pragma once

/// \file
/// `HTTPCacheStatus`: what the cache of a session did for an answer.

#include <VanticRestKit/Visibility.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// Where an answer came from.
enum class AnswerSource {
    network,      ///< The server sent it.
    cache,        ///< The cache had it; nothing was sent.
    revalidated,  ///< The cache had it, and the server said that it still holds.
    stale,        ///< The cache had it and it was out of date; nothing was sent, or what was sent failed.
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

/// How an answer came about, as far as the session's own cache is concerned.
struct VRK_EXPORT HTTPCacheStatus {
    /// Where an answer came from.
    using Source = AnswerSource;
    /// Why the server was asked; the values of `fwd` of RFC 9211 that a client's own cache can have.
    enum class Forwarding {
        /// It was not.
        none,
        /// The session has no cache, or the policy says not to ask it.
        bypass,
        /// The method is one to which nothing is stored.
        method,
        /// Nothing is stored for this URL.
        uriMiss,
        /// What is stored for this URL depends on header fields with other values.
        varyMiss,
        /// The request's own header fields, or its policy, ask for the server's opinion.
        request,
        /// The time of the stored answer is up.
        stale,
        /// What is stored does not hold the part that was asked for.
        partial,
    };

    /// Where the answer came from.
    Source source = Source::network;
    /// Why the server was asked.
    Forwarding forwarding = Forwarding::bypass;
    /// Whether a cache was there to ask.
    bool hasCache = false;
    /// The status with which the server answered; empty if it was not asked or gave no answer.
    std::optional<std::int64_t> forwardedStatus{};
    /// How long the answer stays fresh; below zero for one that is stale. Only of an answer from the cache.
    std::optional<std::chrono::seconds> timeToLive{};
    /// Whether the server's answer was stored.
    bool isStored = false;

    /// The session's member of the field Cache-Status (RFC 9211), such as "VanticRestKit; hit; ttl=40" or
    /// "VanticRestKit; fwd=stale; fwd-status=304; stored". Empty without a cache.
    std::optional<std::string> text() const;

    friend bool operator==(const HTTPCacheStatus&, const HTTPCacheStatus&) = default;
};

}  // namespace VanticRestKit
