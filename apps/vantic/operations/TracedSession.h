#pragma once

#include <VanticRestKit/Core/NetworkSession.h>

#include <memory>

namespace vantic {

/// Passes requests on to `session` and reports on standard error what became of each: status, source, times, bytes and
/// header fields.
std::shared_ptr<VanticRestKit::NetworkSession> tracedSession(
    std::shared_ptr<VanticRestKit::NetworkSession> session);

}  // namespace vantic
