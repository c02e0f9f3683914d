#pragma once

/// \file
/// `CategoryURI`: the route to a category screen.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// Asks for a category screen; the name goes into the path as it stands.
struct CategoryURI {
    struct Arguments {
        Required<std::string> for_;
    };
    /// `CategoryURI({.for_ = "arts"})`
    explicit CategoryURI(Arguments arguments) : category(std::move(arguments.for_).value()) {}

    std::string category;

    std::string path() const { return "v2/category/" + category; }
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const CategoryURI&, const CategoryURI&) = default;
};

}  // namespace VanticRestKit
