#pragma once

/// \file
/// The form of a stored answer in a `CacheStore`.

#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>
#include <VanticRestKit/platform/http/cache/detail/StoredResponse.h>

#include <string>

namespace VanticRestKit::detail {

/// Status, fields and times of `response` as bytes. The time of the steady clock is left out, since it means nothing in
/// another process.
Data recordHead(const StoredResponse& response);

/// The record of `response` under `key`.
CacheRecord recordOf(std::string key, const StoredResponse& response);

/// The answer of a record; null if its head cannot be read, as one of another version or a damaged one.
StoredPointer responseOf(const CacheRecord& record);

}  // namespace VanticRestKit::detail
