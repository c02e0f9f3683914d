#pragma once

/// \file
/// `Category`: the screen of a category or channel, or the home screen.

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

/// The screen of a category or channel, or the home screen: a title, a featured collection and further collections.
///
/// The title, both kinds of collections and the link to itself are required. Decoding fails if any collection cannot be
/// decoded.
struct Category {
    /// Key `id`; empty if absent or not a string.
    std::optional<std::string> id{};
    /// The title. Key `title`; a required string.
    std::string title{};
    /// Key `featuredImage`; empty if absent or not a string.
    std::optional<std::string> featuredImageHref{};
    /// Key `logoUrl`; empty if absent or not a string.
    std::optional<std::string> logoHref{};
    /// The banner. Key `banner`; empty if absent or if it cannot be decoded.
    std::optional<Banner> banner{};
    /// The colour theme. Key `theme`; the default theme if absent or not known.
    Theme theme{};
    /// The path of the screen, relative to the API's version prefix. Every decoded category has one.
    std::optional<std::string> selfHref{};
    /// The id of the alert about the screen, for `Endpoint::ProductAlert`.
    std::optional<std::string> alertId{};
    /// The featured collection; not included in `collections`.
    MixedCollection featuredCollection = mapping::detail::fresh<MixedCollection>();
    /// The rows of the screen, in order. Key `_embedded.collections`; required; decoding fails if any element cannot be
    /// decoded.
    std::vector<MixedCollection> collections{};

    friend bool operator==(const Category&, const Category&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Category>();

}  // namespace VanticRestKit
