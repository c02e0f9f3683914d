#pragma once

/// \file
/// `URLQueryItem`: one name with its value in the query of a URL.

#include <optional>
#include <string>

namespace VanticRestKit {

/// One item of a query, not percent-encoded on either side.
struct URLQueryItem {
    /// What stands before the "=". May be an empty text.
    std::string name{};
    /// What stands behind the "=". Empty means an item without "="; an empty text is one with "=" and nothing
    /// behind it.
    std::optional<std::string> value{};

    friend bool operator==(const URLQueryItem&, const URLQueryItem&) = default;
};

}  // namespace VanticRestKit
