#pragma once

/// \file
/// `ProductAlert`: an alert about an entity.

#include <VanticRestKit/lumeno/Link/Link.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// An alert about an entity. The id, the title and the message are required.
struct ProductAlert {
    /// Key `id`; a required string.
    std::string id{};
    /// The title. Key `title`; a required string.
    std::string title{};
    /// The text of the message. Key `message`; a required string.
    std::string message{};
    /// A string, not a badge. Key `status`; empty if absent or not a string.
    std::optional<std::string> status{};
    /// The link to follow. Key `link`; empty if absent or if it cannot be decoded.
    std::optional<Link> link{};

    friend bool operator==(const ProductAlert&, const ProductAlert&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ProductAlert>();

}  // namespace VanticRestKit
