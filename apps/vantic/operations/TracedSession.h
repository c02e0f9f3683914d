#pragma once

#include <VanticRestKit/Core/NetworkSession.h>

#include <memory>

namespace vantic {

/// Forwards requests to `session` and reports the outcome of each on standard error: status, source, times, bytes and
/// headers.
std::shared_ptr<VanticRestKit::NetworkSession> tracedSession(
    std::shared_ptr<VanticRestKit::NetworkSession> session);

}  // namespace vantic
