#pragma once

/// \file
/// `NavigationMainMenuList`: the main menu, with its entries and their pictures.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// A picture of the main menu. Nothing of it may be left out.
struct NavigationMainMenuItemImage {
    /// Key `id`; must be there and be a string.
    std::string id{};
    /// The address of the picture. Key `url`; must be there and be a string.
    std::string url{};
    /// For a screen reader.
    std::string accessibilityText{};

    friend bool operator==(const NavigationMainMenuItemImage&, const NavigationMainMenuItemImage&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationMainMenuItemImage>();

/// An entry of the main menu, with the entries below it. Anything of a wrong type fails it.
struct NavigationMainMenuItem {
    /// Key `id`; must be there and be a string.
    std::string id{};
    /// The title. Key `title`; empty if absent or null; another type fails the decoding.
    std::optional<std::string> title{};
    /// For a screen reader.
    std::optional<std::string> accessibilityText{};
    /// Key `logoUrl`; empty if absent or null; another type fails the decoding.
    std::optional<std::string> logoUrl{};
    /// Key `path`; empty if absent or null; another type fails the decoding.
    std::optional<std::string> path{};
    /// The entries below this one, as deep as a document goes.
    std::optional<std::vector<NavigationMainMenuItem>> items{};
    /// Pictures. Key `images`; empty if absent or null; another type fails the decoding.
    std::optional<std::vector<NavigationMainMenuItemImage>> images{};

    friend bool operator==(const NavigationMainMenuItem&, const NavigationMainMenuItem&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationMainMenuItem>();

/// The main menu, a tree. One entry or picture that does not decode fails it, however deep it lies.
struct NavigationMainMenuList {
    /// Key `items`; must be there; one element that does not decode fails the document.
    std::vector<NavigationMainMenuItem> items{};

    friend bool operator==(const NavigationMainMenuList&, const NavigationMainMenuList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationMainMenuList>();

}  // namespace VanticRestKit
