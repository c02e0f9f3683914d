#pragma once

/// \file
/// `DatasetContainer`: a free-form dataset of a user and what it belongs to.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// A free-form dataset of a user and what it belongs to.
struct DatasetContainer {
    /// The id of the user. Key `uid`; must be there and be a string.
    std::string uid{};
    /// Key `parent_uid`; empty if absent or not a string.
    std::optional<std::string> parentUid{};
    /// Key `oid`; empty if absent or not a string.
    std::optional<std::string> oid{};
    /// A plain text here.
    std::optional<std::string> source{};
    /// Key `namespace`; empty if absent or not a string.
    std::optional<std::string> namespace_{};
    /// The texts, numbers and truth values of the dataset; anything else in it is left out.
    Dictionary dataset{};
    /// Empty also where it has a fraction of a second.
    std::optional<Date> created{};
    /// As `created`.
    std::optional<Date> updated{};

    friend bool operator==(const DatasetContainer&, const DatasetContainer&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<DatasetContainer>();

}  // namespace VanticRestKit
