#pragma once

/// \file
/// Punycode: letters beyond ASCII in the names of hosts.

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The Punycode form (RFC 3492) of `label`, UTF-8, without the prefix "xn--". Empty if `label` is not UTF-8 or is longer
/// than a label of a host can be.
std::optional<std::string> punycode(std::string_view label);

}  // namespace VanticRestKit::detail
