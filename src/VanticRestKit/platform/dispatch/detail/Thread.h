#pragma once

/// \file
/// How the library starts its threads.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <string_view>

namespace VanticRestKit::detail {

/// Runs `body` on a new thread that nobody joins. The host's signals are not handled there: all that are not
/// faults of the thread itself are blocked. Debuggers show the last 15 bytes of `name`.
///
/// Returns false where the system gives no thread; `body` is destroyed then.
bool startThread(std::string_view name, Block body);

}  // namespace VanticRestKit::detail
