#pragma once

/// \file
/// `AvatarURI`: the route to the pictures that a profile can take.

#include <string>

namespace VanticRestKit {

/// Asks for the pictures that a profile can take.
struct AvatarURI {
    /// The path below the base URL.
    std::string path() const { return "v3/image/avatar/"; }

    friend bool operator==(const AvatarURI&, const AvatarURI&) = default;
};

}  // namespace VanticRestKit
