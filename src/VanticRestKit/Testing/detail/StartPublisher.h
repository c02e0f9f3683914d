#pragma once

/// \file
/// A publisher for sessions that implement only `start`.

#include <VanticRestKit/Core/NetworkSession.h>

#include <memory>

namespace VanticRestKit::Testing::detail {

/// A publisher that keeps `session` alive. Each subscription starts a transfer with `start`; cancelling the
/// subscription cancels the transfer.
AnyPublisher<NetworkSession::Answer> publisherByStart(std::shared_ptr<NetworkSession> session,
                                                      NetworkSession::LoadDataPublisherArguments arguments);

}  // namespace VanticRestKit::Testing::detail
