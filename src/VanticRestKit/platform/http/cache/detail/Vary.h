#pragma once

/// \file
/// Which request header fields an answer depends on, and whether a request has the same ones.

#include <VanticRestKit/platform/http/URLRequest.h>

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The fields that `vary` names, with the values that `request` has for them: one "name:value" a line, names in lower
/// case and in order, values in a normal form (see `normalVaryValue`); a field that the request lacks has no colon.
/// Authorization and Cookie are left out: whose an answer is, is part of its key. Empty for an answer that depends on no field. No value if `vary` has a member "*": such an answer fits no request
/// but its own.
std::optional<std::string> variantOf(std::string_view vary, const URLRequest& request);

/// Whether `request` has the values of `variant`.
bool fitsVariant(std::string_view variant, const URLRequest& request);

/// `value` without the blanks beside the commas of a list, which mean nothing. The values of Accept, Accept-Charset,
/// Accept-Encoding and Accept-Language are in lower case and without all blanks too. The order of a list stays: servers
/// prefer what comes first.
std::string normalVaryValue(std::string_view name, std::string_view value);

}  // namespace VanticRestKit::detail
