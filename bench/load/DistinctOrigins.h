#pragma once

#include <cstddef>

namespace VanticRestKit::bench {

/// Reports the cost per load of `many` loads to as many origins, relative to that of `few`. The ratio is 1 if the cost
/// is proportional to the number of loads. Each origin is a loopback address that refuses connections.
void distinctOrigins(std::size_t few, std::size_t many, std::size_t rounds);

}  // namespace VanticRestKit::bench
