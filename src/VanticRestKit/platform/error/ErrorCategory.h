#pragma once

/// \file
/// `ErrorCategory`: what a failure means for the one who asked.

#include <VanticRestKit/Visibility.h>

#include <cstdint>

namespace VanticRestKit {

/// What a failure means for the one who asked: the least that an application tells apart. `docs/errors.md` lists which
/// error has which category.
enum class ErrorCategory : std::uint8_t {
    offline,       ///< There is no connection to the service: no network, an unknown host, a lost connection.
    timedOut,      ///< The service took too long, or a deadline passed.
    cancelled,     ///< The application ended it itself.
    insecure,      ///< No secure connection could be made, or a certificate is not to be trusted.
    unauthorized,  ///< Nobody is signed in, or the service does not accept who is.
    forbidden,     ///< The service knows who asks and refuses.
    notFound,      ///< What was asked for is not there, or not any more.
    tooManyRequests,  ///< The service asks for fewer requests, or a limit of the session does.
    serverFailed,     ///< The service could not do what it was asked.
    badAnswer,        ///< An answer came that cannot be used: it is not what the library reads.
    wrongUse,         ///< The request itself was wrong: a mistake of the application or of the library.
    unknown,          ///< None of the others.
};

/// The name of the category as it is written here, such as "timedOut".
VRK_EXPORT const char* nameOf(ErrorCategory category) noexcept;

}  // namespace VanticRestKit
