#pragma once

#include <string>
#include <string_view>

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// The placeholder for the address of this service in an answer. A route does not know the address under which a client
/// reaches it, which may be that of a proxy.
inline constexpr std::string_view ownOrigin = "own-origin:";

/// The origin to which a request was sent: "http://127.0.0.1:41417".
std::string originOf(const Request& request, bool secure);

/// Replaces `ownOrigin` at the start of every string of the answer by `origin`.
void fillOrigin(JSON& value, const std::string& origin);

}  // namespace VanticRestKit::sample
