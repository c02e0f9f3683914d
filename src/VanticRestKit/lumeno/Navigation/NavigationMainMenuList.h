#pragma once

/// \file
/// `NavigationMainMenuList`: the main menu, with its entries and their images.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// An image of the main menu. All fields are required.
struct NavigationMainMenuItemImage {
    /// Key `id`; a required string.
    std::string id{};
    /// The URL of the image. Key `url`; a required string.
    std::string url{};
    /// Text for a screen reader.
    std::string accessibilityText{};

    friend bool operator==(const NavigationMainMenuItemImage&, const NavigationMainMenuItemImage&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationMainMenuItemImage>();

/// An entry of the main menu, with the entries below it. Decoding fails if a field is of another type.
struct NavigationMainMenuItem {
    /// Key `id`; a required string.
    std::string id{};
    /// The title. Key `title`; empty if absent or null; decoding fails for another type.
    std::optional<std::string> title{};
    /// Text for a screen reader.
    std::optional<std::string> accessibilityText{};
    /// Key `logoUrl`; empty if absent or null; decoding fails for another type.
    std::optional<std::string> logoUrl{};
    /// Key `path`; empty if absent or null; decoding fails for another type.
    std::optional<std::string> path{};
    /// The entries below this one, to any depth.
    std::optional<std::vector<NavigationMainMenuItem>> items{};
    /// Images. Key `images`; empty if absent or null; decoding fails for another type.
    std::optional<std::vector<NavigationMainMenuItemImage>> images{};

    friend bool operator==(const NavigationMainMenuItem&, const NavigationMainMenuItem&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationMainMenuItem>();

/// The main menu, which is a tree. Decoding fails if any entry or image, at any depth, cannot be decoded.
struct NavigationMainMenuList {
    /// Key `items`; required; decoding fails if any element cannot be decoded.
    std::vector<NavigationMainMenuItem> items{};

    friend bool operator==(const NavigationMainMenuList&, const NavigationMainMenuList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationMainMenuList>();

}  // namespace VanticRestKit
