#pragma once

/// \file
/// `ProductAlert`: a notice about an entity.

#include <VanticRestKit/lumeno/Link/Link.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// A notice about an entity. Id, title and message must be there; nothing else fails it.
struct ProductAlert {
    /// Key `id`; must be there and be a string.
    std::string id{};
    /// The title. Key `title`; must be there and be a string.
    std::string title{};
    /// The text of the message. Key `message`; must be there and be a string.
    std::string message{};
    /// A plain text, not a badge.
    std::optional<std::string> status{};
    /// Where it leads. Key `link`; empty if absent or if it does not decode.
    std::optional<Link> link{};

    friend bool operator==(const ProductAlert&, const ProductAlert&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ProductAlert>();

}  // namespace VanticRestKit
