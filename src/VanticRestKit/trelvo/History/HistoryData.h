#pragma once

/// \file
/// `HistoryData`: how far a user has watched one video.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/trelvo/Common/RouteValues.h>
#include <VanticRestKit/Visibility.h>

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// A record of a viewing history. The mapping table must be declared before this concept is checked.
template <class T>
concept HistoryEntityProtocol = Decodable<T> && requires(const T& record) {
    { record.source } -> std::convertible_to<std::optional<SourceSystem>>;
    { record.namespace_ } -> std::convertible_to<std::string>;
    { record.key } -> std::convertible_to<std::string>;
    { record.progress } -> std::convertible_to<std::int64_t>;
    { record.done } -> std::convertible_to<bool>;
    { record.lastAccessed } -> std::convertible_to<std::optional<Date>>;
};

/// How far a user has watched one video.
struct HistoryData {
    /// Empty if absent or unknown.
    std::optional<SourceSystem> source{};
    /// The id of the user. Key `uid`; a required string.
    std::string uid{};
    /// Key `oid`; a required string.
    std::string oid{};
    /// Key `slug`; a required string.
    std::string slug{};
    /// Key `namespace`; a required string.
    std::string namespace_{};
    /// Key `key`; a required string.
    std::string key{};
    /// In seconds.
    std::int64_t progress{};
    /// Whether the video counts as watched. Key `done`; a required boolean.
    bool done{};
    /// Key `lastAccessed`; empty if absent or not a date.
    std::optional<Date> lastAccessed{};

    friend bool operator==(const HistoryData&, const HistoryData&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<HistoryData>();

}  // namespace VanticRestKit
