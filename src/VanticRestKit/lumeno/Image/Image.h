#pragma once

/// \file
/// `Image` and `Banner`: the pictures of the service.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// A picture of the service. Any JSON object decodes into one: what is missing or unfit is empty.
struct Image {
    /// The service sends a text or a number; the number is held in decimal.
    std::optional<std::string> id{};
    /// The address of the picture. Key `url`; empty if absent or not a string.
    std::optional<std::string> url{};
    /// For a screen reader.
    std::optional<std::string> accessibilityText{};
    /// Key `type`; empty if absent or not a string.
    std::optional<std::string> type{};
    /// Key `tags`; an empty list if absent or not a list of strings.
    std::vector<std::string> tags{};
    /// Key `aspectRatio`; empty if absent or not a string.
    std::optional<std::string> aspectRatio{};
    /// In pixels.
    std::optional<std::uint64_t> width{};
    /// In pixels.
    std::optional<std::uint64_t> height{};
    /// A text in place of the picture. Key `altText`; empty if absent or not a string.
    std::optional<std::string> altText{};

    friend bool operator==(const Image&, const Image&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Image>();

/// A picture across a screen, in two sizes, that leads somewhere. Each `...Href` must be there.
struct Banner {
    /// The address of the large picture. Key `large`; must be there and be a string.
    std::string largeImageHref{};
    /// The address of the small picture. Key `small`; must be there and be a string.
    std::string smallImageHref{};
    /// A text in place of the picture. Key `altText`; empty if absent or null; another type fails the decoding.
    std::optional<std::string> altText{};
    /// Where a tap on the banner leads.
    std::string linkHref{};

    friend bool operator==(const Banner&, const Banner&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Banner>();

}  // namespace VanticRestKit
