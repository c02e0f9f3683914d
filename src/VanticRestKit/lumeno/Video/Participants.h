#pragma once

/// \file
/// `Participants`: who took part in a programme, in one role.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// Who took part in a programme, in one role. A value of another type than text fails the decoding.
struct Participants {
    /// The role, such as "Director".
    std::optional<std::string> title{};
    /// The names, as one text.
    std::optional<std::string> list{};

    friend bool operator==(const Participants&, const Participants&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Participants>();

}  // namespace VanticRestKit
