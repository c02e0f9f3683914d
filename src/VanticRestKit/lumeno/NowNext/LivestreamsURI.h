#pragma once

/// \file
/// `LivestreamsURI`: the route to the livestreams.

#include <VanticRestKit/lumeno/NowNext/LivestreamRegion.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// Asks for the livestreams of a region, or of the whole country where none is given.
struct LivestreamsURI {
    std::optional<LivestreamRegion> region{};

    std::string path() const {
        return region ? "v2/livestreams/" + std::string(rawValue(*region)) : "v2/livestreams";
    }

    friend bool operator==(const LivestreamsURI&, const LivestreamsURI&) = default;
};

}  // namespace VanticRestKit
