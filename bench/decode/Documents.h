#pragma once

#include <cstddef>
#include <string>

namespace VanticRestKit::bench {

// Synthetic documents like those of the service. The same arguments result in the same document.

/// A list of videos with every field, about 2.8 KB per video. With `shuffled`, the keys of each video are in a random
/// order.
std::string videoListDocument(std::size_t videos, bool shuffled);

/// A complete home screen, about 1 MB: a featured collection and 30 others with mixed shows, videos and series.
std::string homeDocument();

/// An index of shows in 27 groups, about 1.7 KB per show.
std::string showsIndexDocument(std::size_t shows);

}  // namespace VanticRestKit::bench
