#pragma once

/// \file
/// `Category`: a category, a channel or the home screen.

#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>
#include <VanticRestKit/lumeno/Theme/Theme.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/PlanOf.h>
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
    std::string title{};
    std::optional<std::string> featuredImageHref{};
    std::optional<std::string> logoHref{};
    std::optional<Banner> banner{};
    Theme theme{};
    /// The path of the screen, below the API's version prefix. Every decoded category has one.
    std::optional<std::string> selfHref{};
    /// What `Endpoint::ProductAlert` fetches the alert of the screen by.
    std::optional<std::string> alertId{};
    /// Not one of `collections`.
    MixedCollection featuredCollection = mapping::detail::fresh<MixedCollection>();
    std::vector<MixedCollection> collections{};

    friend bool operator==(const Category&, const Category&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Category>();

}  // namespace VanticRestKit
