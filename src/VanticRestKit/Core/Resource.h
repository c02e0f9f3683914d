#pragma once

/// \file
/// `Resource`: a prepared request and the type of its answer.

#include <VanticRestKit/Core/Loader.h>
#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/Core/ResourceArguments.h>
#include <VanticRestKit/Core/ResourceLoad.h>
#include <VanticRestKit/platform/async/LoadAwaitable.h>
#include <VanticRestKit/platform/async/LoadFuture.h>
#include <VanticRestKit/platform/async/LoadOptions.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/publisher/AnyPublisher.h>

#include <concepts>
#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit {

/// A prepared request whose answer is decoded to a `T`, any type that `JSONDecoder` decodes. It is cheap: make one per
/// use.
///
/// The request is built once, when the resource is made: its URL, headers and tokens are those of that time. Copies
/// share one `Loader` and therefore one busy state. Use a resource from one thread at a time.
///
/// A completion must not throw: that ends the process, as for every block of a `DispatchQueue`.
///
/// ```cpp
/// std::optional<Resource<double>> time = Endpoint::Time(context);
/// if (time) time->load({.with = [](Result<double, LoaderError> result) { ... }});
/// ```
template <class T>
class Resource {
public:
    /// Receives the value or the error.
    using Completion = typename Loader<T>::Completion;

    /// The argument of `load`.
    struct LoadArguments {
        /// Called once, on the queue on which the service delivers.
        Required<Completion> with;
    };

    /// A resource that runs `withService`.
    explicit Resource(ResourceArguments::Service arguments)
        : Resource(std::move(arguments.withService).value(), std::move(arguments.andDecoder)) {}
    /// A resource for a request, on the shared session. Failures are reported only to the completion.
    explicit Resource(ResourceArguments::Request arguments)
        : Resource(detail::serviceFor(std::move(arguments.withURLRequest).value()),
                   std::move(arguments.andDecoder)) {}
    /// The same for a plain request: GET, no headers, 60 seconds.
    explicit Resource(ResourceArguments::Address arguments)
        : Resource(detail::serviceFor(std::move(arguments.withURL).value()),
                   std::move(arguments.andDecoder)) {}

    /// A resource for a route, run by the service that `context.service` returns. Empty if the context cannot form a
    /// URL for the route. The context is only read during this call.
    static std::optional<Resource> make(ResourceArguments::Route arguments, const Context& context) {
        return made(detail::serviceFor(arguments.with.value(), context), std::move(arguments.andDecoder));
    }
    /// The same request on the shared session, with failures reported only to the completion: `service` is ignored, and
    /// so is the context's own.
    static std::optional<Resource> make(ResourceArguments::RouteAndService arguments,
                                        const Context& context) {
        std::optional<URLRequest> request = detail::requestFor(arguments.with.value(), context);
        if (!request) return std::nullopt;
        return Resource(ResourceArguments::Request{.withURLRequest = *std::move(request),
                                                   .andDecoder = std::move(arguments.andDecoder)});
    }
    /// A resource for a complete path, with the given decoder.
    static std::optional<Resource> make(ResourceArguments::HrefAndDecoder arguments, const Context& context) {
        return make({.with = std::move(arguments.withHrefURI).value(),
                     .andDecoder = std::move(arguments.andDecoder).value()},
                    context);
    }
    /// A resource for a complete path, with a new decoder.
    static std::optional<Resource> make(ResourceArguments::Href arguments, const Context& andUsing) {
        return make({.with = std::move(arguments.withHrefURI).value()}, andUsing);
    }

    /// The decoder of the answer.
    const JSONDecoder& decoder() const noexcept { return decoder_; }

    /// Starts a load. Does nothing while this resource or a copy of it is busy: the completion is then never called.
    /// Otherwise it is called once, on the session's delegate queue, and may start the next load.
    ///
    /// The load keeps the resource alive until it has ended.
    void load(LoadArguments arguments) const {
        loader_->load(
            {.withDecoder =
                 [resource = *this](const Data& body) { return resource.reader().template decode<T>(body); }},
            std::move(arguments.with));
    }

    /// A publisher of the value. Each subscription sends a new request, whether the resource is busy or not; drop the
    /// subscription to cancel it. Failures are not wrapped: a `NetworkError`, a transport error or a decoder error.
    AnyPublisher<T> resourceLoader() const { return loader_->load({.decoder = decoder_}); }

    /// The same, but with an empty value for a JSON null and for any failure; it never fails.
    AnyPublisher<std::optional<T>, Never> optionalResourceLoader() const {
        return loader_->loadOptional({.decoder = decoder_});
    }

    /// Whether a `load` is in progress; publishers do not count.
    bool isBusy() const { return loader_->isBusy(); }

    /// Cancels a `load` that has not yet started its request. The resource is then unusable: it stays busy and never
    /// calls a completion again. Any other load continues.
    void cancel() const { loader_->cancel(); }

    /// The outcome of every load below, delivered once: the value or an error. A cancelled load ends with a
    /// `serverError` that holds the transport's `URLErrorCode::cancelled`, one that misses its deadline with
    /// `URLErrorCode::timedOut`.
    using Outcome = Result<T, LoaderError>;

    /// Starts an independent load, whether the resource is busy or not, and calls `completion` once with its outcome,
    /// on the queue of the options or on the session's delegate queue.
    ///
    /// `cancel()` on the handle ends the load and its transfer, and the completion is called with that error. Dropping
    /// the handle ends it too, but the completion is not called. `detach()` lets the load continue without the handle.
    ///
    /// ```cpp
    /// Cancellable load = show->start({.on = DispatchQueue::main(), .deadline = 5s}, [](auto result) { ... });
    /// ```
    [[nodiscard]] Cancellable start(LoadOptions options, Completion completion) const {
        const auto call = prepare(std::move(options), std::move(completion));
        Cancellable handle(call);
        call->begin();
        return handle;
    }

    /// An independent load for a coroutine: `Result<Show, LoaderError> show = co_await resource->value();` It starts
    /// when it is awaited; the coroutine resumes where `start` would call the completion. Destroying the waiting
    /// coroutine cancels the load.
    ///
    /// GCC 12 has a bug: braced arguments with a destructor, such as a string, are destroyed twice in a `co_await`
    /// expression. With that compiler, make the resource in a separate statement before awaiting it.
    LoadAwaitable<Resource> value(AwaitOptions options = {}) const { return {*this, options.copied()}; }
    /// The same with stored options.
    template <std::same_as<LoadOptions> Options>
    LoadAwaitable<Resource> value(Options options) const {
        return {*this, std::move(options)};
    }

    /// Starts an independent load and returns a future. Only the stop token and the deadline of the options end it;
    /// `options.on` is ignored.
    LoadFuture<Outcome> future(LoadOptions options = {}) const { return {*this, std::move(options)}; }

    /// Loads and blocks the calling thread until the outcome is available: for tools and tests. On the session's
    /// delegate queue it fails immediately, since it would never end. `options.on` is ignored.
    Outcome wait(LoadOptions options = {}) const { return future(std::move(options)).get(); }

    /// Used by the forms above: a prepared load that has not been started.
    std::shared_ptr<detail::PendingCall> prepare(LoadOptions options, Completion completion) const {
        return std::make_shared<detail::ResourceLoad<T>>(loader_->service(), reader(), std::move(options),
                                                         std::move(completion));
    }
    /// Whether the calling code runs on the queue on which this resource delivers.
    bool needsCurrentQueue() const { return loader_->service()->deliveryQueue().isCurrent(); }
    /// The outcome of a load that failed with `error` before it started.
    Outcome failed(Error error) const { return Failure(LoaderError::serverError(std::move(error))); }

private:
    Resource(std::shared_ptr<Serviceable> service, JSONDecoder decoder)
        : loader_(Loader<T>::make({.with = std::move(service)})), decoder_(std::move(decoder)) {}

    detail::BodyReader reader() const { return {decoder_, loader_->service()->observation()}; }

    static std::optional<Resource> made(std::shared_ptr<Serviceable> service, JSONDecoder decoder) {
        if (!service) return std::nullopt;
        return Resource(std::move(service), std::move(decoder));
    }

    std::shared_ptr<Loader<T>> loader_;
    JSONDecoder decoder_;
};

}  // namespace VanticRestKit
