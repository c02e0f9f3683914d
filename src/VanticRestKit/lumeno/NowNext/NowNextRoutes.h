#pragma once

/// \file
/// The routes to what is on: `NowNextURI` and `LivestreamsURI`.

#include <VanticRestKit/lumeno/NowNext/LivestreamRegion.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// Asks for what is on a channel now and next; the house number goes into the path as it stands.
struct NowNextURI {
    /// The house number of the video.
    std::string houseNumber{};

    /// The path below the base URL.
    std::string path() const { return "v2/nownext/" + houseNumber; }

    friend bool operator==(const NowNextURI&, const NowNextURI&) = default;
};

/// Asks for the livestreams of a region, or of the whole country where none is given.
struct LivestreamsURI {
    /// The region; empty for the whole country.
    std::optional<LivestreamRegion> region{};

    /// The path below the base URL.
    std::string path() const {
        return region ? "v2/livestreams/" + std::string(rawValue(*region)) : "v2/livestreams";
    }

    friend bool operator==(const LivestreamsURI&, const LivestreamsURI&) = default;
};

}  // namespace VanticRestKit
