#pragma once

/// \file
/// `Remap`: a path translated to that of the API and that of the application.

#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <string>

namespace VanticRestKit {

/// A path translated to that of the API and that of the application; created only by decoding. The objects of both
/// links are required; absent fields in them are empty strings.
struct Remap {
    /// Used only for decoding.
    explicit Remap(mapping::Fresh) {}

    /// Key `status`; an empty string if absent; decoding fails for another type.
    std::string status{};
    /// The path in the API, relative to its version prefix.
    std::string apiHref{};
    /// The path in the application.
    std::string deeplinkHref{};

    friend bool operator==(const Remap&, const Remap&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Remap>();

}  // namespace VanticRestKit
