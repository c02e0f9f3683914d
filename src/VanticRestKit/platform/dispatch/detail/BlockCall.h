#pragma once

/// \file
/// `callBlock`: how every queue calls a block.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <string>

namespace VanticRestKit::detail {

/// Calls `block` for the queue with this label. An exception that leaves the block ends the process, after a line on
/// the standard error output that names the queue: nothing above the block could handle it, and the message of the
/// runtime alone would not say whose callback it was.
void callBlock(Block& block, const std::string& label) noexcept;

}  // namespace VanticRestKit::detail
