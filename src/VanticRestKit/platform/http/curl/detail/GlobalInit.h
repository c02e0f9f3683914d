#pragma once

/// \file
/// Initialises libcurl for the process, and tells what it can do.

namespace VanticRestKit::detail {

/// Initialises libcurl, once for the process, without its TLS key log. To be called before anything else of libcurl.
/// Any thread may call.
void initialiseLibcurl();

/// Whether the libcurl of this process was built with HTTP/2. One without refuses to be asked for it. Any thread may call.
bool libcurlHasHTTP2() noexcept;

}  // namespace VanticRestKit::detail
