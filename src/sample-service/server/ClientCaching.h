#pragma once

#include <string_view>

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// Adds the cache headers of a typical service to an answer: images are fresh for a day and the catalogue for a minute;
/// answers that depend on the time or on a search must be revalidated; user data must not be cached. A cacheable answer
/// gets an ETag derived from `text`, the body, and a request with that ETag is answered with 304.
///
/// The home screen sets a cookie if the client has none.
///
/// `behaviourChanges`: whether the service's behaviour is changed while clients run, which cached answers would hide. Then
/// only the home screen and the menus are fresh for some time; everything else must be revalidated.
void describeToCaches(const Request& request, std::string_view text, bool behaviourChanges, Reply& reply);

}  // namespace VanticRestKit::sample
