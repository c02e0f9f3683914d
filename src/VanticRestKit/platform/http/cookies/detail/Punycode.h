#pragma once

/// \file
/// Punycode: encodes non-ASCII host names.

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The Punycode form (RFC 3492) of `label`, which is UTF-8, without the prefix "xn--". Empty if `label` is not valid
/// UTF-8 or is too long for a host name.
std::optional<std::string> punycode(std::string_view label);

}  // namespace VanticRestKit::detail
