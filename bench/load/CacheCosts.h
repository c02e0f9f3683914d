#pragma once

#include <cstddef>
#include <string>

namespace VanticRestKit::bench {

/// Reports the cost of loads that are cache hits, revalidated responses and cache misses, each relative to the same
/// load in a session without a cache. `origin` is that of a `Server`.
void cacheCosts(const std::string& origin, std::size_t count, std::size_t rounds);

/// Reports whether looking up a response, and adding one that evicts another, costs more if the cache contains `many`
/// of them.
void lookUps(std::size_t many, std::size_t rounds);

}  // namespace VanticRestKit::bench
