#pragma once

/// \file
/// `URLQueryItem`: a name and a value in the query of a URL.

#include <optional>
#include <string>

namespace VanticRestKit {

/// One item of a query; name and value are not percent-encoded.
struct URLQueryItem {
    /// The part before the "="; may be an empty string.
    std::string name{};
    /// The part after the "=". Empty if the item has no "="; an empty string if nothing follows the "=".
    std::optional<std::string> value{};

    friend bool operator==(const URLQueryItem&, const URLQueryItem&) = default;
};

}  // namespace VanticRestKit
