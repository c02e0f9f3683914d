#pragma once

/// \file
/// What the path of a URL may look like beside the other parts, and its dot segments.

#include <VanticRestKit/platform/url/detail/URLText.h>

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// `path` written so that nobody reads a host or a scheme into it, given what `url` holds before its path.
/// The outcome means the same: without a host "//x" becomes "/.//x"; without a host and a scheme "a:b"
/// becomes "a%3Ab".
std::string unmistakablePath(const URLText& url, std::string path);

/// `path` with its "." and ".." segments applied.
std::string withoutDotSegments(std::string_view path);

}  // namespace VanticRestKit::detail
