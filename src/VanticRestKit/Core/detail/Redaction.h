#pragma once

/// \file
/// Removes possible secrets from URLs and errors.

#include <VanticRestKit/platform/error/Error.h>

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// `url` with "redacted" in place of its user and password, of the values in its query, of a query item without a
/// name, and of its fragment.
std::string redactedAddress(std::string_view url);

/// The domain and code of `error`; for a transport error, also the sentence for its code.
Error withoutDetails(const Error& error);

}  // namespace VanticRestKit::detail
