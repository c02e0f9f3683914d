#pragma once

#include <string>
#include <string_view>

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// What stands in an answer for the address of this service. A route does not know under which address a
/// client reaches it, which may be that of a proxy.
inline constexpr std::string_view ownOrigin = "own-origin:";

/// The address under which a request came: "http://127.0.0.1:41417".
std::string originOf(const Request& request, bool secure);

/// Puts the address wherever a text of the answer begins with `ownOrigin`.
void fillOrigin(JSON& value, const std::string& origin);

}  // namespace VanticRestKit::sample
