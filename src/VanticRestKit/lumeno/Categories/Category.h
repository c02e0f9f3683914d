#pragma once

/// \file
/// `Category`: a category, a channel or the home screen.

#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>
#include <VanticRestKit/lumeno/Theme/Theme.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// A category, a channel or the home screen: a heading over one featured collection and further ones.
///
/// It must have its title, both kinds of collections and a link to itself; one collection that does not decode
/// fails it.
struct Category {
    /// A text; a number is not taken.
    std::optional<std::string> id{};
    /// The title. Key `title`; must be there and be a string.
    std::string title{};
    /// Key `featuredImage`; empty if absent or not a string.
    std::optional<std::string> featuredImageHref{};
    /// Key `logoUrl`; empty if absent or not a string.
    std::optional<std::string> logoHref{};
    /// The banner. Key `banner`; empty if absent or if it does not decode.
    std::optional<Banner> banner{};
    /// How the screen is coloured. Key `theme`; the default theme if absent or not known.
    Theme theme{};
    /// The path of the screen, below the API's version prefix. Every decoded category has one.
    std::optional<std::string> selfHref{};
    /// What `Endpoint::ProductAlert` fetches the alert of the screen by.
    std::optional<std::string> alertId{};
    /// Not one of `collections`.
    MixedCollection featuredCollection = mapping::detail::fresh<MixedCollection>();
    /// The rows of the screen, in order. Key `_embedded.collections`; must be there; one element that does not decode
    /// fails the document.
    std::vector<MixedCollection> collections{};

    friend bool operator==(const Category&, const Category&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Category>();

}  // namespace VanticRestKit
