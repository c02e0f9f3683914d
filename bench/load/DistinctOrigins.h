#pragma once

#include <cstddef>

namespace VanticRestKit::bench {

/// Reports what a load costs of many to as many origins, as a ratio to one of a few: 1 if the cost grows with the number
/// of loads alone. Every origin is an address of loopback that refuses connections.
void distinctOrigins(std::size_t few, std::size_t many, std::size_t rounds);

}  // namespace VanticRestKit::bench
