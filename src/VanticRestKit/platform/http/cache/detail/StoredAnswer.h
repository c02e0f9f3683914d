#pragma once

/// \file
/// What a cache answers with a stored answer: all of it, its head, a part of it, or that it has not changed.

#include <VanticRestKit/platform/http/cache/detail/CacheRequest.h>
#include <VanticRestKit/platform/http/cache/detail/StoredResponse.h>

#include <optional>

namespace VanticRestKit::detail {

/// An answer in the form in which a completion gets it.
struct CachedAnswer {
    std::int64_t status = 0;
    HeaderFields fields{};
    Data body{};
};

/// Whether the part of `stored` that `request` asks for can be cut out of it; also if it asks for all.
bool hasRequestedPart(const StoredResponse& stored, const CacheRequest& request);

/// What `request` is answered with `stored`, which has the part requested:
/// - its head alone for HEAD,
/// - 304 if the request's own condition says that the client has it already,
/// - 206 with the bytes of the range requested,
/// - all of it otherwise.
///
/// Fields that the server wants to confirm each time are left out. The fields have an Age.
CachedAnswer answerOf(const StoredResponse& stored, const CacheRequest& request, CacheTime now);

/// The same after the server has confirmed `stored`: with all its fields, and no Age of this cache's.
CachedAnswer confirmedAnswerOf(const StoredResponse& stored, const CacheRequest& request);

/// Whether the condition of `request` says that the client has `stored` already.
bool isNotModified(const StoredResponse& stored, const CacheRequest& request, std::chrono::seconds now);

/// Adds the question whether `stored` has changed to `request`.
void addConditions(URLRequest& request, const StoredResponse& stored);

/// Whether the answer to a HEAD, with these fields, may be to the same thing as `stored`.
bool describesSame(const StoredResponse& stored, const HeaderFields& head);

}  // namespace VanticRestKit::detail
