#pragma once

/// \file
/// `NowNextURI`: the route to what is on now and next.

#include <string>

namespace VanticRestKit {

/// Asks for what is on a channel now and next; the house number goes into the path as it stands.
struct NowNextURI {
    std::string houseNumber{};

    std::string path() const { return "v2/nownext/" + houseNumber; }

    friend bool operator==(const NowNextURI&, const NowNextURI&) = default;
};

}  // namespace VanticRestKit
