#pragma once

/// \file
/// `Serviceable`: runs a prepared request.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/LoadProgress.h>
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

/// Runs one prepared request, any number of times. A host may supply its own. Overriding `fetch(FetchArguments)` is
/// enough for every form of a load; override `start` too if requests can be cancelled, and `fetch()` if publishers
/// should cancel them.
class VRK_EXPORT Serviceable {
public:
    /// Receives the body of the answer or an error.
    using Completion = UniqueFunction<void(Result<Data, Error>)>;

    /// The arguments of `fetch` and `start`.
    struct FetchArguments {
        /// Called once with the outcome.
        Required<Completion> with;
        /// Receives a record of each request, before the completion and on the same queue. A service that makes no
        /// records may ignore it; one that decorates another passes it on, with `ofAttempt` if it retries. Empty: no
        /// records are wanted.
        MetricsReceiver metrics{};
        /// Receives the progress of the request, on the queue of the completion. A service that does not track it may
        /// ignore this; one that decorates another passes it on. Empty: no progress is wanted.
        ProgressReceiver progress{};
    };

    virtual ~Serviceable();

    /// Runs the request once and calls the completion once with its outcome, on any queue. A `Loader` calls this on its
    /// own queue and decodes on the queue of the completion.
    virtual void fetch(FetchArguments arguments) = 0;

    /// A publisher of the body or the error. Each subscription runs the request again. The service must exist until the
    /// last subscription has started; a `Loader` keeps it alive that long.
    ///
    /// The default uses `fetch(FetchArguments)`: cancelling the subscription then only suppresses the delivery, and so
    /// does the default of `start`. A service that overrides only that one hides this overload; `using
    /// Serviceable::fetch;` makes it visible again.
    virtual AnyPublisher<Data> fetch();

    /// As `fetch()`, with records of the requests of all subscriptions passed to `metrics`, which may be empty. The
    /// default returns `fetch()` and makes no records.
    virtual AnyPublisher<Data> publisher(MetricsReceiver metrics);

    /// Runs the request once. Cancelling or destroying the returned handle cancels it. The completion is called like
    /// that of `fetch`, but may not be called after a cancellation. Used by all cancellable loads.
    ///
    /// The default subscribes to the publisher.
    [[nodiscard]] virtual Cancellable start(FetchArguments arguments);

    /// The queue on which completions of `start` are called. The default is a queue shared by all services that do not
    /// override this; cancelled loads and missed deadlines are delivered there.
    virtual DispatchQueue deliveryQueue() const;

    /// The error of a request that was ended with `code`: `URLErrorCode::cancelled` by its caller, or
    /// `URLErrorCode::timedOut` by the deadline of a load. Called once for each, on the queue where the load delivers.
    virtual Error endedEarly(URLErrorCode code) const;

    /// The observer of its decoding, for the library's own services; may be null.
    virtual const detail::LoadObservation* observation() const noexcept { return nullptr; }

protected:
    Serviceable() = default;
    Serviceable(const Serviceable&) = default;
    Serviceable& operator=(const Serviceable&) = default;
};

}  // namespace VanticRestKit
