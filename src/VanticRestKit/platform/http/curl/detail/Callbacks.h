#pragma once

/// \file
/// What libcurl calls while it works on an attempt.

#include <VanticRestKit/platform/http/curl/detail/Connections.h>
#include <VanticRestKit/platform/http/curl/detail/EasyHandle.h>
#include <VanticRestKit/platform/http/curl/detail/Options.h>

namespace VanticRestKit::detail {

/// Has libcurl tell the attempt of `handle` what happens to its request, and open and close its sockets
/// through `connections`.
void setCallbacks(Options& options, EasyHandle& handle, Connections& connections);

}  // namespace VanticRestKit::detail
