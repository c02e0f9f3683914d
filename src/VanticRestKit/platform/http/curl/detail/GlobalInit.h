#pragma once

/// \file
/// Initialises libcurl for the process, and reports its features.

namespace VanticRestKit::detail {

/// Initialises libcurl once per process, without its TLS key log. Must be called before anything else of libcurl.
/// Thread-safe.
void initialiseLibcurl();

/// Whether libcurl was built with HTTP/2; otherwise it rejects the option. Thread-safe.
bool libcurlHasHTTP2() noexcept;

}  // namespace VanticRestKit::detail
