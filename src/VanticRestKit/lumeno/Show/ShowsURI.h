#pragma once

/// \file
/// `ShowsURI`: the route to several shows.

#include <VanticRestKit/lumeno/Endpoints/JoinedByCommas.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// Asks for several shows by slug or id, which go into the path as they stand, joined by commas. An empty list is
/// asked for too.
struct ShowsURI {
    std::vector<std::string> showSlugsOrIds{};

    std::string path() const { return "v2/shows/" + joinedByCommas(showSlugsOrIds); }

    friend bool operator==(const ShowsURI&, const ShowsURI&) = default;
};

}  // namespace VanticRestKit
