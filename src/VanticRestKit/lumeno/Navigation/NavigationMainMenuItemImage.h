#pragma once

/// \file
/// `NavigationMainMenuItemImage`: a picture of the main menu.

#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <string>

namespace VanticRestKit {

/// A picture of the main menu. Nothing of it may be left out.
struct NavigationMainMenuItemImage {
    std::string id{};
    std::string url{};
    /// For a screen reader.
    std::string accessibilityText{};

    friend bool operator==(const NavigationMainMenuItemImage&, const NavigationMainMenuItemImage&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationMainMenuItemImage>();

}  // namespace VanticRestKit
