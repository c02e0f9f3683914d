#pragma once

/// \file
/// `Banner`: a picture across a screen, in two sizes.

#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

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
