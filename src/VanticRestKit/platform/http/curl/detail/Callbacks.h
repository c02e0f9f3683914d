#pragma once

/// \file
/// The callbacks that libcurl calls while it performs an attempt.

#include <VanticRestKit/platform/http/curl/detail/Connections.h>
#include <VanticRestKit/platform/http/curl/detail/EasyHandle.h>
#include <VanticRestKit/platform/http/curl/detail/Options.h>

namespace VanticRestKit::detail {

/// Sets callbacks that report events to the attempt of `handle`, and that open and close sockets through `connections`.
void setCallbacks(Options& options, EasyHandle& handle, Connections& connections);

}  // namespace VanticRestKit::detail
