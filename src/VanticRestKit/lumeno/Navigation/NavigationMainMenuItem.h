#pragma once

/// \file
/// `NavigationMainMenuItem`: an entry of the main menu.

#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuItemImage.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// An entry of the main menu, with the entries below it. Anything of a wrong type fails it.
struct NavigationMainMenuItem {
    std::string id{};
    std::optional<std::string> title{};
    /// For a screen reader.
    std::optional<std::string> accessibilityText{};
    std::optional<std::string> logoUrl{};
    std::optional<std::string> path{};
    /// The entries below this one, as deep as a document goes.
    std::optional<std::vector<NavigationMainMenuItem>> items{};
    std::optional<std::vector<NavigationMainMenuItemImage>> images{};

    friend bool operator==(const NavigationMainMenuItem&, const NavigationMainMenuItem&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationMainMenuItem>();

}  // namespace VanticRestKit
