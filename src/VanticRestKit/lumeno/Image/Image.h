#pragma once

/// \file
/// `Image` and `Banner`: the pictures of the service.

#include <VanticRestKit/platform/json/PlanOf.h>
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
    std::optional<std::string> url{};
    /// For a screen reader.
    std::optional<std::string> accessibilityText{};
    std::optional<std::string> type{};
    std::vector<std::string> tags{};
    std::optional<std::string> aspectRatio{};
    /// In pixels.
    std::optional<std::uint64_t> width{};
    /// In pixels.
    std::optional<std::uint64_t> height{};
    std::optional<std::string> altText{};

    friend bool operator==(const Image&, const Image&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Image>();

/// A picture across a screen, in two sizes, that leads somewhere. Each `...Href` must be there.
struct Banner {
    std::string largeImageHref{};
    std::string smallImageHref{};
    std::optional<std::string> altText{};
    /// Where a tap on the banner leads.
    std::string linkHref{};

    friend bool operator==(const Banner&, const Banner&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Banner>();

}  // namespace VanticRestKit
