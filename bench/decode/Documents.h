#pragma once

#include <cstddef>
#include <string>

namespace VanticRestKit::bench {

/// A list of made-up videos as the service sends it, every field filled, about 2.8 KB for each video. `shuffled`
/// gives each video's keys another order. The same arguments give the same document.
std::string videoListDocument(std::size_t videos, bool shuffled);

}  // namespace VanticRestKit::bench
