#pragma once

/// \file
/// Destroys blocks that hold blocks, without deep recursion.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

namespace VanticRestKit::detail {

/// Destroys `block` on the calling thread. Where this is called from within itself, because the block held
/// the last reference to another one, that other one waits until the first is gone: a chain of any length
/// takes no more stack than two links.
void dispose(Block block);

}  // namespace VanticRestKit::detail
