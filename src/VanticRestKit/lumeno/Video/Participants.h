#pragma once

/// \file
/// `Participants`: the participants of a programme in one role.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// The participants of a programme in one role. Decoding fails if a value is not a string.
struct Participants {
    /// The role, such as "Director".
    std::optional<std::string> title{};
    /// The names, in one string.
    std::optional<std::string> list{};

    friend bool operator==(const Participants&, const Participants&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Participants>();

}  // namespace VanticRestKit
