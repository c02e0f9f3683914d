#pragma once

/// \file
/// `SavedData`: one thing that a user has saved.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/trelvo/Common/RouteValues.h>
#include <VanticRestKit/Visibility.h>

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// What a record of a saved thing offers: it decodes, so its mapping table is declared before this is asked.
template <class T>
concept SavedEntityProtocol = Decodable<T> && requires(const T& record) {
    { record.source } -> std::convertible_to<std::optional<SourceSystem>>;
    { record.oid } -> std::convertible_to<std::string>;
    { record.slug } -> std::convertible_to<std::string>;
    { record.namespace_ } -> std::convertible_to<std::string>;
    { record.key } -> std::convertible_to<std::string>;
    { record.order } -> std::convertible_to<std::int64_t>;
    { record.created } -> std::convertible_to<std::optional<Date>>;
    { record.updated } -> std::convertible_to<std::optional<Date>>;
};

/// One thing that a user has saved.
struct SavedData {
    /// Empty also for a system that is not known.
    std::optional<SourceSystem> source{};
    /// Key `oid`; must be there and be a string.
    std::string oid{};
    /// Key `slug`; must be there and be a string.
    std::string slug{};
    /// Key `namespace`; must be there and be a string.
    std::string namespace_{};
    /// Key `key`; must be there and be a string.
    std::string key{};
    /// Key `order`; must be there and be a whole number.
    std::int64_t order{};
    /// When it was created. Key `created`; empty if absent or not a date.
    std::optional<Date> created{};
    /// When it last changed. Key `updated`; empty if absent or not a date.
    std::optional<Date> updated{};

    friend bool operator==(const SavedData&, const SavedData&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<SavedData>();

}  // namespace VanticRestKit
