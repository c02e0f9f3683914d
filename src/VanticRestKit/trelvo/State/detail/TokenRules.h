#pragma once

// The rules for tokens that both clients share.

#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/trelvo/Common/Auth.h>
#include <VanticRestKit/trelvo/Common/TrelvoError.h>

#include <optional>

namespace VanticRestKit::detail {

/// The current time of the system clock.
double secondsSince1970();

/// The seconds until the access token expires, negative if it has expired. `now` is in seconds since 1970.
double secondsUntilExpiry(const Auth& auth, double now);

/// Whether an access token that expires after this time is used without requesting a new one.
bool lastsLongEnough(double secondsUntilExpiry);

/// Whether the service responded with 401.
bool isUnauthorized(const LoaderError& error);

/// The error of operations without a token after a token request has failed with `error`.
TrelvoError tokenRequestError(const LoaderError& error);

/// The error of `operation` if there is no token: the error of the last token request, if it failed.
TrelvoError noTokenError(const char* operation, const std::optional<TrelvoError>& lastError);

}  // namespace VanticRestKit::detail
