#pragma once

/// \file
/// Stored responses for the cache tests.

#include <VanticRestKit/platform/date/detail/HTTPDate.h>
#include <VanticRestKit/platform/http/cache/detail/StoredResponse.h>

#include <memory>
#include <string>
#include <utility>

namespace VanticRestKit::test {

/// The time at which the responses of these tests were received, on both clocks.
inline constexpr std::chrono::milliseconds receivedAt{1'780'272'000'000};

inline detail::CacheTime after(std::chrono::milliseconds time) {
    return {.wall = receivedAt + time, .steady = receivedAt + time};
}

/// The date `seconds` after the response was received.
inline std::string dateAfter(std::int64_t seconds) {
    return detail::formatHTTPDate(std::chrono::floor<std::chrono::seconds>(receivedAt) +
                                  std::chrono::seconds(seconds));
}

inline detail::ResponseParts partsOf(detail::HeaderFields fields, std::string body = "body",
                                     std::int64_t status = 200) {
    return {.status = status,
            .fields = std::move(fields),
            .body = Data(std::move(body)),
            .requested = after({}),
            .received = after({})};
}

inline detail::StoredPointer storedOf(detail::HeaderFields fields, std::string body = "body",
                                      std::int64_t status = 200) {
    return std::make_shared<const detail::StoredResponse>(
        partsOf(std::move(fields), std::move(body), status));
}

}  // namespace VanticRestKit::test
