#pragma once

/// \file
/// Initialises libcurl for the process.

namespace VanticRestKit::detail {

/// Initialises libcurl, once for the process, without its TLS key log. To be called before anything else of libcurl.
/// Any thread may call.
void initialiseLibcurl();

}  // namespace VanticRestKit::detail
