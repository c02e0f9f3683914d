#pragma once

/// \file
/// The routes to live channels: `NowNextURI` and `LivestreamsURI`.

#include <VanticRestKit/lumeno/NowNext/LivestreamRegion.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// The current and the next programme of a channel. The house number is inserted into the path unchanged.
struct NowNextURI {
    /// The house number of the video.
    std::string houseNumber{};

    /// The path below the base URL.
    std::string path() const { return "v2/nownext/" + houseNumber; }

    friend bool operator==(const NowNextURI&, const NowNextURI&) = default;
};

/// The livestreams of a region, or of the whole country.
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
