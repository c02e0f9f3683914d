#pragma once

/// \file
/// `ErrorCategory`: the kinds of failure that an application distinguishes.

#include <VanticRestKit/Visibility.h>

#include <cstdint>

namespace VanticRestKit {

/// The kinds of failure that an application usually distinguishes. `docs/errors.md` lists the category of each error.
enum class ErrorCategory : std::uint8_t {
    offline,       ///< There is no connection to the service: no network, an unknown host, a lost connection.
    timedOut,      ///< The service took too long, or a deadline passed.
    cancelled,     ///< The application cancelled it.
    insecure,      ///< No secure connection could be made, or a certificate is not trusted.
    unauthorized,  ///< No user is signed in, or the service does not accept the user.
    forbidden,     ///< The service refuses the request for this user.
    notFound,      ///< The requested item does not exist, or no longer exists.
    tooManyRequests,  ///< The service asks for fewer requests, or a limit of the session does.
    serverFailed,     ///< The service failed to handle the request.
    badAnswer,        ///< The answer cannot be used: it is not what the library expects.
    wrongUse,         ///< The request itself was wrong: a bug of the application or of the library.
    unknown,          ///< None of the others.
};

/// The name of the enumerator, such as "timedOut".
VRK_EXPORT const char* nameOf(ErrorCategory category) noexcept;

}  // namespace VanticRestKit
