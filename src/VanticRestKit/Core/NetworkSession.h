#pragma once

/// \file
/// `NetworkSession`: the interface over the transport.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/http/URLResponse.h>
#include <VanticRestKit/platform/publisher/AnyPublisher.h>
#include <VanticRestKit/platform/publisher/Cancellable.h>
#include <VanticRestKit/Visibility.h>

#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit {

class URLSession;

/// Carries requests to their server. A host may supply a transport of its own: one that overrides `loadData` alone
/// serves every form of a load. It overrides `start` too if its transfers can be cancelled, and `loadDataPublisher`
/// if publishers are used and shall cancel them.
class VRK_EXPORT NetworkSession {
public:
    /// Receives the body, the head of the answer and the error of a transfer, each where there is one.
    using Completion =
        UniqueFunction<void(std::optional<Data>, std::shared_ptr<const URLResponse>, std::optional<Error>)>;
    /// Body and head of an answer.
    using Answer = std::pair<Data, std::shared_ptr<const URLResponse>>;

    /// The arguments of `loadData`.
    struct LoadDataArguments {
        /// The request to send.
        Required<URLRequest> fromURLRequest;
        /// Receives what came, once.
        Required<Completion> completionHandler;
        /// Gets a record of each request, before the handler, on its queue. A session that makes none may ignore it.
        /// Empty: no records are wanted.
        MetricsReceiver metrics{};
    };
    /// The arguments of `loadDataPublisher`.
    struct LoadDataPublisherArguments {
        /// The request to send.
        Required<URLRequest> fromURLRequest;
        /// The same, for the requests of all subscriptions.
        MetricsReceiver metrics{};
    };

    virtual ~NetworkSession();

    /// Starts the transfer at once. The handler is called once, on the session's own serial queue.
    virtual void loadData(LoadDataArguments arguments) = 0;

    /// A publisher whose every subscription starts a transfer; cancelling the subscription ends it. The session must
    /// live until the last subscription has started.
    ///
    /// A session that does not override this subscribes by `loadData`: cancelling the subscription then stops the
    /// delivery and not the transfer, and the same holds for the default of `start`. An answer without body and without
    /// error has an empty body.
    virtual AnyPublisher<Answer> loadDataPublisher(LoadDataPublisherArguments arguments);

    /// Starts the transfer at once, like `loadData`, and gives a handle whose `cancel()` or end ends the transfer. The
    /// handler of a transfer that was ended so is called with the error of a cancelled request, or not at all.
    ///
    /// A session that does not override this subscribes to its own `loadDataPublisher`, so that the head of an answer
    /// that failed is lost.
    [[nodiscard]] virtual Cancellable start(LoadDataArguments arguments);

    /// The queue on which handlers are called. A session that does not override this names one that all such sessions
    /// share; loads that are cancelled or miss their deadline are delivered there.
    virtual DispatchQueue deliveryQueue() const;

protected:
    NetworkSession() = default;
    NetworkSession(const NetworkSession&) = default;
    NetworkSession& operator=(const NetworkSession&) = default;
};

/// The platform's session as a `NetworkSession`. `session` must not be null. Data tasks that it starts are
/// resumed at once and not kept: only those of `start` and of publishers can be cancelled.
VRK_EXPORT std::shared_ptr<NetworkSession> networkSession(std::shared_ptr<URLSession> session);

}  // namespace VanticRestKit
