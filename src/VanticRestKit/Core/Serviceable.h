#pragma once

/// \file
/// `Serviceable`: something that can run one request.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLErrorCode.h>
#include <VanticRestKit/platform/publisher/AnyPublisher.h>
#include <VanticRestKit/platform/publisher/Cancellable.h>
#include <VanticRestKit/platform/result/Result.h>
#include <VanticRestKit/Visibility.h>

namespace VanticRestKit {

namespace detail {
class LoadObservation;
}  // namespace detail

/// Runs one request that is already prepared, any number of times. A host may supply its own: one that overrides
/// `fetch(FetchArguments)` alone serves every form of a load. It overrides `start` too if its requests can be cancelled,
/// and `fetch()` if publishers are used and shall cancel them.
class VRK_EXPORT Serviceable {
public:
    /// Receives the body of the answer, or why there is none.
    using Completion = UniqueFunction<void(Result<Data, Error>)>;

    /// The arguments of `fetch` and `start`.
    struct FetchArguments {
        /// Called once with the outcome.
        Required<Completion> with;
        /// Gets a record of each request, before the completion, on its queue. A service that makes none may ignore it;
        /// one that decorates another hands it on, as `ofAttempt` if it tries again. Empty: no records are wanted.
        MetricsReceiver metrics{};
    };

    virtual ~Serviceable();

    /// Runs the request once and calls the completion once with its outcome, on a queue of the implementer's
    /// choice. A `Loader` calls this on its own queue and decodes on the queue of the completion.
    virtual void fetch(FetchArguments arguments) = 0;

    /// A publisher of the one body, or of the error in its place. Each subscription runs the request anew. The service
    /// must live until the last subscription has started; a `Loader` keeps it alive that long.
    ///
    /// A service that does not override this subscribes by `fetch(FetchArguments)`: cancelling the subscription then
    /// stops the delivery and not the request, and the same holds for the default of `start`. Such a service writes
    /// `using Serviceable::fetch;` if this is to be called on its own type, since its override hides it there.
    virtual AnyPublisher<Data> fetch();

    /// What `fetch()` gives, with records of the requests of all its subscriptions for `metrics`, which may be empty. A
    /// service that does not override this gives its `fetch()` and makes no records.
    virtual AnyPublisher<Data> publisher(MetricsReceiver metrics);

    /// Runs the request once and gives a handle whose `cancel()` or end ends it. The completion is called as that of
    /// `fetch`, but may not be called at all once the request was ended. The loads that can be cancelled start here.
    ///
    /// A service that does not override this subscribes to its own publisher.
    [[nodiscard]] virtual Cancellable start(FetchArguments arguments);

    /// The queue on which completions of `start` are called. A service that does not override this names one that all
    /// such services share; loads that are cancelled or miss their deadline are delivered there.
    virtual DispatchQueue deliveryQueue() const;

    /// The error of a request that was ended with `code`: `URLErrorCode::cancelled` by its caller, or
    /// `URLErrorCode::timedOut` by the deadline of a load. Called once for each, on the queue where the load delivers.
    virtual Error endedEarly(URLErrorCode code) const;

    /// Who is told of what its bodies are decoded to; null if no one is. Of the library's own services.
    virtual const detail::LoadObservation* observation() const noexcept { return nullptr; }

protected:
    Serviceable() = default;
    Serviceable(const Serviceable&) = default;
    Serviceable& operator=(const Serviceable&) = default;
};

}  // namespace VanticRestKit
