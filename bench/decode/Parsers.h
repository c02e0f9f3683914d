#pragma once

#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/platform/data/Data.h>

#include <cstddef>
#include <functional>
#include <string>

namespace VanticRestKit::bench {

/// Another parser that decodes a list of videos into the library's own structs.
struct Peer {
    std::string name;
    std::function<VideoList(const Data& document)> decode;
    /// How many rounds pass between two runs, for what is too slow to be run in each.
    std::size_t every;
};

Peer simdjsonPeer();
Peer nlohmannPeer();
Peer rapidjsonPeer();

}  // namespace VanticRestKit::bench
