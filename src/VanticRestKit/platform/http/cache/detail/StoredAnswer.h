#pragma once

/// \file
/// The response that a cache makes from a stored one: the whole response, its headers, a range of it, or 304.

#include <VanticRestKit/platform/http/cache/detail/CacheRequest.h>
#include <VanticRestKit/platform/http/cache/detail/StoredResponse.h>

#include <optional>

namespace VanticRestKit::detail {

/// A response as it is passed to a completion.
struct CachedAnswer {
    std::int64_t status = 0;
    HeaderFields fields{};
    Data body{};
};

/// Whether `stored` contains the range that `request` asks for; true if it asks for no range.
bool hasRequestedPart(const StoredResponse& stored, const CacheRequest& request);

/// The response to `request` made from `stored`, which contains the requested range:
/// - only the headers for HEAD,
/// - 304 if the request's own condition shows that the client already has it,
/// - 206 with the bytes of the requested range,
/// - all of it otherwise.
///
/// Fields that require validation each time are left out. An Age is added.
CachedAnswer answerOf(const StoredResponse& stored, const CacheRequest& request, CacheTime now);

/// The same after the server has confirmed `stored`: with all its fields, and without an Age of this cache.
CachedAnswer confirmedAnswerOf(const StoredResponse& stored, const CacheRequest& request);

/// Whether the condition of `request` shows that the client already has `stored`.
bool isNotModified(const StoredResponse& stored, const CacheRequest& request, std::chrono::seconds now);

/// Adds conditions to `request` that ask whether `stored` has changed.
void addConditions(URLRequest& request, const StoredResponse& stored);

/// Whether the fields of a response to HEAD are consistent with `stored`.
bool describesSame(const StoredResponse& stored, const HeaderFields& head);

}  // namespace VanticRestKit::detail
