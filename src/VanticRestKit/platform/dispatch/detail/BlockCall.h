#pragma once

/// \file
/// `callBlock`: calls a block of a queue.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <string>

namespace VanticRestKit::detail {

/// Calls `block` for the queue with this label. An exception that leaves the block ends the process, after a line on
/// standard error that names the queue: no caller could handle it, and the runtime's own message would not say which
/// callback threw.
void callBlock(Block& block, const std::string& label) noexcept;

}  // namespace VanticRestKit::detail
