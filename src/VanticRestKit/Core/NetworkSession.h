#pragma once

/// \file
/// `NetworkSession`: the interface to the transport.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/LoadProgress.h>
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

/// Sends requests. A host may supply its own transport. Overriding `loadData` is enough for every form of a load;
/// override `start` too if transfers can be cancelled, and `loadDataPublisher` if publishers should cancel them.
class VRK_EXPORT NetworkSession {
public:
    /// Receives the body, the response and the error of a transfer, each if there is one.
    using Completion =
        UniqueFunction<void(std::optional<Data>, std::shared_ptr<const URLResponse>, std::optional<Error>)>;
    /// Body and response of an answer.
    using Answer = std::pair<Data, std::shared_ptr<const URLResponse>>;

    /// The arguments of `loadData`.
    struct LoadDataArguments {
        /// The request to send.
        Required<URLRequest> fromURLRequest;
        /// Called once with the outcome.
        Required<Completion> completionHandler;
        /// Receives a record of each request, before the handler and on the same queue. A session that makes no records
        /// may ignore it. Empty: no records are wanted.
        MetricsReceiver metrics{};
        /// Receives the progress of the transfer, on the queue of the handler. A session that does not track it may
        /// ignore this. Empty: no progress is wanted.
        ProgressReceiver progress{};
    };
    /// The arguments of `loadDataPublisher`.
    struct LoadDataPublisherArguments {
        /// The request to send.
        Required<URLRequest> fromURLRequest;
        /// The same, for the requests of all subscriptions.
        MetricsReceiver metrics{};
    };

    virtual ~NetworkSession();

    /// Starts the transfer immediately. The handler is called once, on the session's own serial queue.
    virtual void loadData(LoadDataArguments arguments) = 0;

    /// A publisher that starts a transfer for each subscription; cancelling the subscription cancels the transfer. The
    /// session must exist until the last subscription has started.
    ///
    /// The default uses `loadData`: cancelling the subscription then only suppresses the delivery, and so does the
    /// default of `start`. An answer without a body and without an error gives an empty body.
    virtual AnyPublisher<Answer> loadDataPublisher(LoadDataPublisherArguments arguments);

    /// Starts the transfer immediately, like `loadData`. Cancelling or destroying the returned handle cancels the
    /// transfer, whose handler is then called with the error of a cancelled request, or not at all.
    ///
    /// The default subscribes to `loadDataPublisher`, so the response of a failed answer is lost.
    [[nodiscard]] virtual Cancellable start(LoadDataArguments arguments);

    /// The queue on which handlers are called. The default is a queue shared by all sessions that do not override this;
    /// cancelled loads and missed deadlines are delivered there.
    virtual DispatchQueue deliveryQueue() const;

protected:
    NetworkSession() = default;
    NetworkSession(const NetworkSession&) = default;
    NetworkSession& operator=(const NetworkSession&) = default;
};

/// Adapts a `URLSession`, which must not be null. Its data tasks are resumed immediately and not kept: only those of
/// `start` and of publishers can be cancelled.
VRK_EXPORT std::shared_ptr<NetworkSession> networkSession(std::shared_ptr<URLSession> session);

}  // namespace VanticRestKit
