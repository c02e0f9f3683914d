#pragma once

/// \file
/// The request header fields that a response depends on, and whether a request matches them.

#include <VanticRestKit/platform/http/URLRequest.h>

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The fields that `vary` lists, with their values in `request`: one "name:value" per line, names in lower case and
/// sorted, values normalised (see `normalVaryValue`); a field that the request lacks has no colon. Authorization and
/// Cookie are left out because they are part of the key. An empty string if the response depends on no field. No value
/// if `vary` has a member "*" or a member that is not a header name: such a response matches no other request.
std::optional<std::string> variantOf(std::string_view vary, const URLRequest& request);

/// Whether `request` matches the values of `variant`.
bool fitsVariant(std::string_view variant, const URLRequest& request);

/// `value` without the insignificant whitespace around the commas of a list. The values of Accept, Accept-Charset,
/// Accept-Encoding and Accept-Language are also converted to lower case and stripped of all whitespace. The order of a
/// list is kept, since servers prefer what comes first.
std::string normalVaryValue(std::string_view name, std::string_view value);

}  // namespace VanticRestKit::detail
