#pragma once

/// \file
/// A publisher for sessions whose transfers begin with `start`.

#include <VanticRestKit/Core/NetworkSession.h>

#include <memory>

namespace VanticRestKit::Testing::detail {

/// A publisher whose every subscription is a transfer of `session`, begun by `start` and ended with the subscription. It
/// keeps the session.
AnyPublisher<NetworkSession::Answer> publisherByStart(std::shared_ptr<NetworkSession> session,
                                                      NetworkSession::LoadDataPublisherArguments arguments);

}  // namespace VanticRestKit::Testing::detail
