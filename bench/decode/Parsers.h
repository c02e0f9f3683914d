#pragma once

#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/platform/data/Data.h>

#include <cstddef>
#include <functional>
#include <string>

namespace VanticRestKit::bench {

/// Another parser that decodes documents into the library's own structs.
struct Peer {
    std::string name;
    /// Run only in every n-th round, for parsers that are too slow to run in each.
    std::size_t every;
    std::function<VideoList(const Data& document)> videos;
    std::function<Category(const Data& document)> home;
    std::function<ShowsIndex(const Data& document)> shows;
};

Peer simdjsonPeer();
Peer nlohmannPeer();
Peer rapidjsonPeer();

}  // namespace VanticRestKit::bench
