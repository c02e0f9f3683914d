#pragma once

/// \file
/// `SavedData`: an item that a user has saved.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/trelvo/Common/RouteValues.h>
#include <VanticRestKit/Visibility.h>

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// A record of a saved item. The mapping table must be declared before this concept is checked.
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

/// An item that a user has saved.
struct SavedData {
    /// Empty if absent or unknown.
    std::optional<SourceSystem> source{};
    /// Key `oid`; a required string.
    std::string oid{};
    /// Key `slug`; a required string.
    std::string slug{};
    /// Key `namespace`; a required string.
    std::string namespace_{};
    /// Key `key`; a required string.
    std::string key{};
    /// Key `order`; a required whole number.
    std::int64_t order{};
    /// When it was created. Key `created`; empty if absent or not a date.
    std::optional<Date> created{};
    /// When it was last changed. Key `updated`; empty if absent or not a date.
    std::optional<Date> updated{};

    friend bool operator==(const SavedData&, const SavedData&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<SavedData>();

}  // namespace VanticRestKit
