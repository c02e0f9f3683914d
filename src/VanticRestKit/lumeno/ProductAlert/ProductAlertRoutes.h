#pragma once

/// \file
/// `ProductAlertURI`: the route to an alert.

#include <VanticRestKit/Core/Required.h>

#include <string>
#include <utility>

namespace VanticRestKit {

/// An alert by its id, which an entity contains. The id is inserted into the path unchanged.
struct ProductAlertURI {
    /// The arguments of the constructor.
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
