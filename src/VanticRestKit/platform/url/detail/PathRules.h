#pragma once

/// \file
/// Unambiguous paths, and dot segments.

#include <VanticRestKit/platform/url/detail/URLText.h>

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// An equivalent of `path` that cannot be mistaken for a host or scheme, given the parts of `url` before its path:
/// without a host "//x" becomes "/.//x"; without a host and a scheme "a:b" becomes "a%3Ab".
std::string unmistakablePath(const URLText& url, std::string path);

/// `path` with its "." and ".." segments applied.
std::string withoutDotSegments(std::string_view path);

}  // namespace VanticRestKit::detail
