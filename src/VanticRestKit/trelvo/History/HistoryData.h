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

/// What a record of a viewing history offers: it decodes, so its mapping table is declared before this is asked.
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
    /// Empty also for a system that is not known.
    std::optional<SourceSystem> source{};
    std::string uid{};
    std::string oid{};
    std::string slug{};
    std::string namespace_{};
    std::string key{};
    /// In seconds.
    std::int64_t progress{};
    bool done{};
    std::optional<Date> lastAccessed{};

    friend bool operator==(const HistoryData&, const HistoryData&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<HistoryData>();

}  // namespace VanticRestKit
