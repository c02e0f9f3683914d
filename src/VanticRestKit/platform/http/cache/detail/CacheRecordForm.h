#pragma once

/// \file
/// Serialises stored responses for a `CacheStore`.

#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>
#include <VanticRestKit/platform/http/cache/detail/StoredResponse.h>

#include <string>

namespace VanticRestKit::detail {

/// The status, fields and times of `response` as bytes. Times of the steady clock are left out, since they are
/// meaningless in another process.
Data recordHead(const StoredResponse& response);

/// The record of `response` under `key`.
CacheRecord recordOf(std::string key, const StoredResponse& response);

/// The response of a record; null if its head cannot be read because it has another version or is damaged.
StoredPointer responseOf(const CacheRecord& record);

}  // namespace VanticRestKit::detail
