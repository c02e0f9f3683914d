#pragma once

#include <cstddef>
#include <string>

namespace VanticRestKit::bench {

// Made-up documents as the service sends them. The same arguments give the same document.

/// A list of videos, every field filled, about 2.8 KB for each video. `shuffled` gives each video's keys another
/// order.
std::string videoListDocument(std::size_t videos, bool shuffled);

/// A whole home screen, about 1 MB: a featured collection and 30 further ones with shows, videos and series mixed.
std::string homeDocument();

/// The index of that many shows, about 1.7 KB for each, in 27 groups.
std::string showsIndexDocument(std::size_t shows);

}  // namespace VanticRestKit::bench
