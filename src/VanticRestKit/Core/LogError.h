#pragma once

/// \file
/// `LogError`: the host's hook for failed requests.

#include <VanticRestKit/platform/dispatch/SharedFunction.h>
#include <VanticRestKit/platform/error/Error.h>

namespace VanticRestKit {

/// Receives the `NetworkError` of a failed request, on the queue that found the failure: the delegate queue
/// of the session. It must be callable from several threads at once, since requests of one context may run on
/// several sessions. An empty function means that nobody listens.
using LogError = SharedFunction<void(const Error&)>;

}  // namespace VanticRestKit
