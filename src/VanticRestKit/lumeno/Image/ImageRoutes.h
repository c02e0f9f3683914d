#pragma once

/// \file
/// `AvatarURI`: the route to the images for profiles.

#include <string>

namespace VanticRestKit {

/// The images that a profile can use.
struct AvatarURI {
    /// The path below the base URL.
    std::string path() const { return "v3/image/avatar/"; }

    friend bool operator==(const AvatarURI&, const AvatarURI&) = default;
};

}  // namespace VanticRestKit
