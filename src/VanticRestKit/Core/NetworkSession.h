#pragma once

/// \file
/// `NetworkSession`: the interface over the transport.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/http/URLResponse.h>
#include <VanticRestKit/platform/publisher/AnyPublisher.h>
#include <VanticRestKit/Visibility.h>

#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit {

class URLSession;

/// Carries requests to their server. A host may put a transport of its own behind it.
class VRK_EXPORT NetworkSession {
public:
    /// Receives the body, the head of the answer and the error of a transfer, each where there is one.
    using Completion =
        UniqueFunction<void(std::optional<Data>, std::shared_ptr<const URLResponse>, std::optional<Error>)>;
    /// Body and head of an answer.
    using Answer = std::pair<Data, std::shared_ptr<const URLResponse>>;

    struct LoadDataArguments {
        Required<URLRequest> fromURLRequest;
        Required<Completion> completionHandler;
    };
    struct LoadDataPublisherArguments {
        Required<URLRequest> fromURLRequest;
    };

    virtual ~NetworkSession();

    /// Starts the transfer at once. The handler is called once, on the session's own serial queue.
    virtual void loadData(LoadDataArguments arguments) = 0;

    /// A publisher whose every subscription starts a transfer; cancelling the subscription ends it.
    virtual AnyPublisher<Answer> loadDataPublisher(LoadDataPublisherArguments arguments) = 0;

protected:
    NetworkSession() = default;
    NetworkSession(const NetworkSession&) = default;
    NetworkSession& operator=(const NetworkSession&) = default;
};

/// The platform's session as a `NetworkSession`. `session` must not be null. Data tasks that it starts are
/// resumed at once and kept by nobody, so they cannot be cancelled through it.
VRK_EXPORT std::shared_ptr<NetworkSession> networkSession(std::shared_ptr<URLSession> session);

}  // namespace VanticRestKit
