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

/// The key under which user information says more than the description does, for whoever reads a log.
inline constexpr std::string_view NSDebugDescriptionKey = "NSDebugDescription";

/// The sentence for people that goes with `code`.
std::string_view urlErrorDescription(URLErrorCode code);

/// What went wrong, before it is an error: the code, and one sentence about this case, empty if there is
/// none.
struct TransportFault {
    URLErrorCode code = URLErrorCode::unknown;
    std::string reason{};
    /// What the error says in place of the sentence that goes with its code, if that one would mislead; else
    /// empty.
    std::string description{};
};

/// The error of `fault` at `url`, caused by `underlying` if that is there.
Error makeURLError(const TransportFault& fault, const std::optional<URL>& url,
                   const std::optional<Error>& underlying = std::nullopt);

}  // namespace VanticRestKit::detail
