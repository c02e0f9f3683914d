#pragma once

/// \file
/// `DatasetContainer`: a free-form dataset of a user.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// A free-form dataset of a user, with its owner and dates.
struct DatasetContainer {
    /// The id of the user. Key `uid`; a required string.
    std::string uid{};
    /// Key `parent_uid`; empty if absent or not a string.
    std::optional<std::string> parentUid{};
    /// Key `oid`; empty if absent or not a string.
    std::optional<std::string> oid{};
    /// A string here, not a `SourceSystem`. Key `source`; empty if absent or not a string.
    std::optional<std::string> source{};
    /// Key `namespace`; empty if absent or not a string.
    std::optional<std::string> namespace_{};
    /// The strings, numbers and booleans of the dataset; other values are omitted.
    Dictionary dataset{};
    /// When it was created. Empty if absent or not a date, and also if it has a fraction of a second.
    std::optional<Date> created{};
    /// See `created`.
    std::optional<Date> updated{};

    friend bool operator==(const DatasetContainer&, const DatasetContainer&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<DatasetContainer>();

}  // namespace VanticRestKit
