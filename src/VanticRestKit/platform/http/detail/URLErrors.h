#pragma once

/// \file
/// Makes the errors of the domain `NSURLErrorDomain`.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/URLErrorCode.h>
#include <VanticRestKit/platform/url/URL.h>

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The key of a detailed description for developers in the user information.
inline constexpr std::string_view NSDebugDescriptionKey = "NSDebugDescription";

/// The message for end users that belongs to `code`.
std::string_view urlErrorDescription(URLErrorCode code);

/// What went wrong, from which an error is made.
struct TransportFault {
    URLErrorCode code = URLErrorCode::unknown;
    std::string reason{};
    /// Replaces the usual message of the code if that would be misleading; otherwise empty.
    std::string description{};
};

/// The error for `fault` at `url`, with the cause `underlying` if there is one.
Error makeURLError(const TransportFault& fault, const std::optional<URL>& url,
                   const std::optional<Error>& underlying = std::nullopt);

}  // namespace VanticRestKit::detail
