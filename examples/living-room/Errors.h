#pragma once

// How failures look: in a block of a screen, and as a page of their own.

#include "Http.h"

#include <VanticRestKit/platform/error/Error.h>

#include <string>

namespace living_room {

/// What a viewer reads about a failure, and what can be done.
struct ViewFailure {
    std::string sentence{};
    /// For those who want to know: "serverFailed", "offline" and so on.
    std::string category{};
    bool offersSignIn = false;
    /// After how many seconds the screen tries again by itself; 0 if that would not help.
    int retrySeconds = 0;
};

ViewFailure failureOf(const VanticRestKit::Error& error);

/// A part of a screen that has loaded: "ready", or "empty" with a sentence in it.
Answer blockAnswer(Html block, const char* state = "ready");
/// The part of a screen that could not be loaded: a sentence and a button to try again.
Answer failedBlock(const VanticRestKit::Error& error);

/// A page that says what was wrong with a request: 400, 403, 404, 405, 421 or 431.
Answer problemPage(int status);

}  // namespace living_room
