#pragma once

/// \file
/// What the public suffix list knows of a domain. The only place that knows libpsl.

#include <string>

namespace VanticRestKit::detail {

/// Whether anyone may register names directly below `domain`, such as "org" or "co.uk". `domain` is in lower case and
/// in ASCII. The answer comes from the list that libpsl was built with; no file is read. A name of one part that is not
/// listed counts as a suffix too.
bool isPublicSuffix(const std::string& domain);

/// The part of `host` that its owner has registered, such as "example.org" for "www.example.org". `host` itself if it
/// is a public suffix or has a form that no one registers. `host` is in lower case and in ASCII.
std::string registrableDomain(const std::string& host);

}  // namespace VanticRestKit::detail
