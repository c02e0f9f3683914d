#pragma once

// How failures look: as a part of a screen, and as a page.

#include "Http.h"

namespace living_room {

/// What the viewer reads about a failure, and what can be done: sentence, category, offersSignIn, and retrySeconds,
/// after which the screen tries again by itself; 0 if that would not help.
Value failureOf(const Error& error);

/// In place of a part that could not be loaded: a sentence and a button to try again.
Answer failedPart(const Error& error);

/// A page that says what was wrong with a request: 400, 403, 404, 405, 421 or 431.
Answer problemPage(int status);

}  // namespace living_room
