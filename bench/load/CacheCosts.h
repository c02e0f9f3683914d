#pragma once

#include <cstddef>
#include <string>

namespace VanticRestKit::bench {

/// What loads cost that the cache answers, that it lets the server confirm, and that it can do nothing for, each as a
/// ratio to the same load of a session without a cache. `origin` is that of a `Server`.
void cacheCosts(const std::string& origin, std::size_t count, std::size_t rounds);

/// Whether to look an answer up, and to add one that another has to go for, costs more if there are `many` of them.
void lookUps(std::size_t many, std::size_t rounds);

}  // namespace VanticRestKit::bench
