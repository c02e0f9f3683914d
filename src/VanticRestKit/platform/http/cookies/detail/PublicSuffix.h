#pragma once

/// \file
/// Looks up domains in the public suffix list. The only code that uses libpsl.

#include <string>

namespace VanticRestKit::detail {

/// Whether anyone may register names directly below `domain`, such as "org" or "co.uk". `domain` is in lower case and
/// in ASCII. Uses the list that libpsl was built with; no file is read. An unlisted name of a single label also counts
/// as a suffix.
bool isPublicSuffix(const std::string& domain);

/// The registered domain of `host`, such as "example.org" for "www.example.org". `host` itself if it is a public suffix
/// or cannot be a registered name. `host` is in lower case and in ASCII.
std::string registrableDomain(const std::string& host);

}  // namespace VanticRestKit::detail
