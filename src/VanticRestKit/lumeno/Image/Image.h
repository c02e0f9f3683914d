#pragma once

/// \file
/// `Image` and `Banner`: images of the service.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// An image of the service. Any JSON object can be decoded; fields that are absent or of another type are empty.
struct Image {
    /// Key `id`; a string or a number, which is converted to a decimal string.
    std::optional<std::string> id{};
    /// The URL of the image. Key `url`; empty if absent or not a string.
    std::optional<std::string> url{};
    /// Text for a screen reader.
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
    /// The alternative text. Key `altText`; empty if absent or not a string.
    std::optional<std::string> altText{};

    friend bool operator==(const Image&, const Image&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Image>();

/// A wide image in two sizes, with a link. Each `...Href` is required.
struct Banner {
    /// The URL of the large image. Key `large`; a required string.
    std::string largeImageHref{};
    /// The URL of the small image. Key `small`; a required string.
    std::string smallImageHref{};
    /// The alternative text. Key `altText`; empty if absent or null; decoding fails for another type.
    std::optional<std::string> altText{};
    /// The target of the banner. Key `link`; a required string.
    std::string linkHref{};

    friend bool operator==(const Banner&, const Banner&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Banner>();

}  // namespace VanticRestKit
