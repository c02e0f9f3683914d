#pragma once

/// \file
/// Takes out of addresses and errors what may be a secret.

#include <VanticRestKit/platform/error/Error.h>

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// `url` with "redacted" in place of its user and password, of the values in its query, of a query item without a
/// name, and of its fragment.
std::string redactedAddress(std::string_view url);

/// The domain and the code of `error`; with the sentence that goes with the code if it is one of the transport's.
Error withoutDetails(const Error& error);

}  // namespace VanticRestKit::detail
