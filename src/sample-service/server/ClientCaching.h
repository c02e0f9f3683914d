#pragma once

#include <string_view>

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// Tells clients how long they may keep an answer, as a service of this kind does: pictures for a day, the catalogue for
/// a minute, what the clock or the words of a search decide only if they ask each time, and the answers for one user not
/// at all. What may be kept gets an ETag, made of `text`, the body; a request that names it is answered with 304.
///
/// The home screen gives a client that has none a cookie.
///
/// `isSteered`: whether somebody changes the service's behaviour while clients run, which an answer that they keep would
/// hide. They keep the home screen and the menus then, and ask each time about everything else.
void describeToCaches(const Request& request, std::string_view text, bool isSteered, Reply& reply);

}  // namespace VanticRestKit::sample
