#pragma once

/// \file
/// Removes cached responses of the user data service.

#include <VanticRestKit/trelvo/Common/Auth.h>

#include <optional>

namespace VanticRestKit::detail {

/// Removes the responses that were loaded with the tokens `previous` from the cache of the shared session, unless
/// `current` still contains these tokens. If a context uses its own session with a separate cache, the host has to
/// remove them there.
void removeStoredAnswers(const std::optional<Auth>& previous, const std::optional<Auth>& current);

}  // namespace VanticRestKit::detail
