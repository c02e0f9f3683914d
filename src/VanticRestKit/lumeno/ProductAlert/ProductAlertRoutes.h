#pragma once

/// \file
/// `ProductAlertURI`: the route to a notice.

#include <VanticRestKit/Core/Required.h>

#include <string>
#include <utility>

namespace VanticRestKit {

/// Asks for a notice by the id that an entity gives; it goes into the path as it stands.
struct ProductAlertURI {
    /// The arguments, by label.
    struct Arguments {
        /// The id of the alert.
        Required<std::string> with;
    };
    /// `ProductAlertURI({.with = "12"})`
    explicit ProductAlertURI(Arguments arguments) : alertId(std::move(arguments.with).value()) {}

    /// The id of the alert.
    std::string alertId;

    /// The path below the base URL.
    std::string path() const { return "v2/alert/" + alertId; }

    friend bool operator==(const ProductAlertURI&, const ProductAlertURI&) = default;
};

}  // namespace VanticRestKit
