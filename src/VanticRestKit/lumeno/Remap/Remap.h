#pragma once

/// \file
/// `Remap`: a path in the terms of the API and of the application.

#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <string>

namespace VanticRestKit {

/// A path in the terms of the API and of the application. Only decoding makes one. The objects of both links must be
/// there; what is left out inside them is without characters.
struct Remap {
    /// For decoders alone.
    explicit Remap(mapping::Fresh) {}

    /// Key `status`; an empty string if absent; another type fails the decoding.
    std::string status{};
    /// Below the API's version prefix.
    std::string apiHref{};
    /// Within the application.
    std::string deeplinkHref{};

    friend bool operator==(const Remap&, const Remap&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Remap>();

}  // namespace VanticRestKit
