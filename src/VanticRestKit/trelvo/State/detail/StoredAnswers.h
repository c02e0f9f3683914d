#pragma once

/// \file
/// The answers that caches hold for users of the user data service.

#include <VanticRestKit/trelvo/Common/Auth.h>

#include <optional>

namespace VanticRestKit::detail {

/// Removes from the shared session's cache what was loaded with the tokens `former`, unless `current` still has them. A
/// host whose context sends its requests over a session with a cache of its own removes them there itself.
void removeStoredAnswers(const std::optional<Auth>& former, const std::optional<Auth>& current);

}  // namespace VanticRestKit::detail
