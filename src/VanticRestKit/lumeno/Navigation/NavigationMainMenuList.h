#pragma once

/// \file
/// `NavigationMainMenuList`: the main menu, with its entries and their pictures.

#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

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

/// The main menu, a tree. One entry or picture that does not decode fails it, however deep it lies.
struct NavigationMainMenuList {
    std::vector<NavigationMainMenuItem> items{};

    friend bool operator==(const NavigationMainMenuList&, const NavigationMainMenuList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationMainMenuList>();

}  // namespace VanticRestKit
