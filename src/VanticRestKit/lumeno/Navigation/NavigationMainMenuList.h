#pragma once

/// \file
/// `NavigationMainMenuList`: the main menu.

#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuItem.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <vector>

namespace VanticRestKit {

/// The main menu, a tree. One entry or picture that does not decode fails it, however deep it lies.
struct NavigationMainMenuList {
    std::vector<NavigationMainMenuItem> items{};

    friend bool operator==(const NavigationMainMenuList&, const NavigationMainMenuList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationMainMenuList>();

}  // namespace VanticRestKit
