#pragma once

/// \file
/// `TimeURI`: the route to the time of the service.

#include <string>

namespace VanticRestKit {

/// The time of the service.
struct TimeURI {
    /// The path below the base URL.
    std::string path() const { return "v2/time"; }

    friend bool operator==(const TimeURI&, const TimeURI&) = default;
};

}  // namespace VanticRestKit
