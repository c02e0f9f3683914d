#pragma once

// The rules by which tokens are judged, whichever client holds them.

#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/trelvo/Common/Auth.h>
#include <VanticRestKit/trelvo/Common/TrelvoError.h>

#include <optional>

namespace VanticRestKit::detail {

/// By the computer's clock.
double secondsSince1970();

/// How long the access token still lasts at `now`, in seconds, negative once it has expired. `now` is in seconds since
/// 1970.
double secondsUntilExpiry(const Auth& auth, double now);

/// Whether an access token with that many seconds left is used without a refresh.
bool lastsLongEnough(double secondsUntilExpiry);

/// Whether the service answered 401.
bool isUnauthorized(const LoaderError& error);

/// What a failed token request means for operations that have no token.
TrelvoError tokenRequestError(const LoaderError& error);

/// Why `operation` has no token: what the last attempt to get one failed with, if it failed.
TrelvoError noTokenError(const char* operation, const std::optional<TrelvoError>& lastError);

}  // namespace VanticRestKit::detail
