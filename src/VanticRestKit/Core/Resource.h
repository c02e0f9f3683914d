#pragma once

/// \file
/// `Resource`: a prepared request and how its answer is read.

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

/// One prepared request and the knowledge of how to read its answer into a `T`, any type that `JSONDecoder`
/// decodes. It is light: make one per use.
///
/// The request is built once, when the resource is made: its URL, headers and tokens are those of that time.
/// Copies share one `Loader`, and so are busy together. Drive a resource from one thread at a time.
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
    /// Receives the value, or why there is none.
    using Completion = typename Loader<T>::Completion;

    /// The argument of `load`.
    struct LoadArguments {
        /// Called once, on the queue on which the service delivers.
        Required<Completion> with;
    };

    /// A resource that runs `withService`.
    explicit Resource(ResourceArguments::Service arguments)
        : Resource(std::move(arguments.withService).value(), std::move(arguments.andDecoder)) {}
    /// A resource of a request, on the shared session. Nobody is told of failures beside the completion.
    explicit Resource(ResourceArguments::Request arguments)
        : Resource(detail::serviceFor(std::move(arguments.withURLRequest).value()),
                   std::move(arguments.andDecoder)) {}
    /// The same for a plain request of a URL: GET, no headers, 60 seconds.
    explicit Resource(ResourceArguments::Address arguments)
        : Resource(detail::serviceFor(std::move(arguments.withURL).value()),
                   std::move(arguments.andDecoder)) {}

    /// A resource of a route, run by what `context.service` gives. Empty where the context can make no URL of
    /// the route. The context is read during this call only.
    static std::optional<Resource> make(ResourceArguments::Route arguments, const Context& context) {
        return made(detail::serviceFor(arguments.with.value(), context), std::move(arguments.andDecoder));
    }
    /// The same request on the shared session, reported to nobody: `service` is ignored, and so is the
    /// context's own.
    static std::optional<Resource> make(ResourceArguments::RouteAndService arguments,
                                        const Context& context) {
        std::optional<URLRequest> request = detail::requestFor(arguments.with.value(), context);
        if (!request) return std::nullopt;
        return Resource(ResourceArguments::Request{.withURLRequest = *std::move(request),
                                                   .andDecoder = std::move(arguments.andDecoder)});
    }
    /// A resource of a path that is held whole, with a decoder given.
    static std::optional<Resource> make(ResourceArguments::HrefAndDecoder arguments, const Context& context) {
        return make({.with = std::move(arguments.withHrefURI).value(),
                     .andDecoder = std::move(arguments.andDecoder).value()},
                    context);
    }
    /// A resource of a path that is held whole, with a new decoder.
    static std::optional<Resource> make(ResourceArguments::Href arguments, const Context& andUsing) {
        return make({.with = std::move(arguments.withHrefURI).value()}, andUsing);
    }

    /// The decoder of the answer.
    const JSONDecoder& decoder() const noexcept { return decoder_; }

    /// Starts a load. Does nothing while this resource or a copy of it is busy: the completion is then never
    /// called. Else it is called once, on the delegate queue of the session, where it may load again.
    ///
    /// The resource lives on until the load has ended, also when the caller drops it.
    void load(LoadArguments arguments) const {
        loader_->load(
            {.withDecoder =
                 [resource = *this](const Data& body) { return resource.reader().template decode<T>(body); }},
            std::move(arguments.with));
    }

    /// A publisher of the value. Each subscription sends the request anew, busy or not; cancel it by dropping
    /// the subscription. Failures arrive as they are: a `NetworkError`, the transport's or the decoder's
    /// error.
    AnyPublisher<T> resourceLoader() const { return loader_->load({.decoder = decoder_}); }

    /// The same with an empty value for a JSON null and for every failure; it never fails.
    AnyPublisher<std::optional<T>, Never> optionalResourceLoader() const {
        return loader_->loadOptional({.decoder = decoder_});
    }

    /// Whether a `load` is under way; publishers do not count.
    bool isBusy() const { return loader_->isBusy(); }

    /// Cancels a `load` that has not started its request yet; the resource is then finished: it stays busy
    /// for good and never calls a completion again. Any other load goes on undisturbed.
    void cancel() const { loader_->cancel(); }

    /// What every load below ends with, once: the value or why there is none. A load that is cancelled ends with a
    /// `serverError` that holds the transport's `URLErrorCode::cancelled`, one that misses its deadline with
    /// `URLErrorCode::timedOut`.
    using Outcome = Result<T, LoaderError>;

    /// Starts a load of its own, busy or not, and calls `completion` once with its outcome, on the queue of the options
    /// or on the delegate queue of the session.
    ///
    /// `cancel()` on the handle ends the load and reaches the socket; the completion is told so. Dropping the handle
    /// ends it too, and the completion is not called any more. `detach()` lets the load go on by itself.
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

    /// A load of its own for a coroutine: `Result<Show, LoaderError> show = co_await resource->value();`
    /// It starts when it is awaited; the coroutine goes on where `start` would call the completion. A coroutine that is
    /// destroyed while it waits cancels the load.
    ///
    /// GCC 12 has a fault: braced arguments that own something, such as a string, are destroyed twice if they stand in
    /// the same expression as `co_await`. With it, name the resource in a statement of its own before it is awaited.
    LoadAwaitable<Resource> value(AwaitOptions options = {}) const { return {*this, options.copied()}; }
    /// The same with options that are kept somewhere.
    template <std::same_as<LoadOptions> Options>
    LoadAwaitable<Resource> value(Options options) const {
        return {*this, std::move(options)};
    }

    /// Starts a load of its own, whose outcome can be waited for. Only the stop token and the deadline of the options
    /// end it; `options.on` is ignored.
    LoadFuture<Outcome> future(LoadOptions options = {}) const { return {*this, std::move(options)}; }

    /// Loads and blocks the calling thread until the outcome is there: for tools and tests. On the delegate queue of
    /// the session it fails at once, since it would never end there. `options.on` is ignored.
    Outcome wait(LoadOptions options = {}) const { return future(std::move(options)).get(); }

    /// For the forms above: a load that was prepared and not begun.
    std::shared_ptr<detail::PendingCall> prepare(LoadOptions options, Completion completion) const {
        return std::make_shared<detail::ResourceLoad<T>>(loader_->service(), reader(), std::move(options),
                                                         std::move(completion));
    }
    /// Whether the calling code occupies the queue on which the loads of this resource deliver.
    bool needsCurrentQueue() const { return loader_->service()->deliveryQueue().isCurrent(); }
    /// The outcome of a load that failed with `error` before it began.
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
