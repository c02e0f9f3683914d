#pragma once

/// \file
/// `Resource`: a prepared request and how its answer is read.

#include <VanticRestKit/Core/Loader.h>
#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/Core/ResourceArguments.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/publisher/AnyPublisher.h>

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
/// ```cpp
/// std::optional<Resource<double>> time = Endpoint::Time(context);
/// if (time) time->load({.with = [](Result<double, LoaderError> result) { ... }});
/// ```
template <class T>
class Resource {
public:
    using Completion = typename Loader<T>::Completion;

    struct LoadArguments {
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
                 [resource = *this](const Data& body) { return resource.decoder_.template decode<T>(body); }},
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

private:
    Resource(std::shared_ptr<Serviceable> service, JSONDecoder decoder)
        : loader_(Loader<T>::make({.with = std::move(service)})), decoder_(std::move(decoder)) {}

    static std::optional<Resource> made(std::shared_ptr<Serviceable> service, JSONDecoder decoder) {
        if (!service) return std::nullopt;
        return Resource(std::move(service), std::move(decoder));
    }

    std::shared_ptr<Loader<T>> loader_;
    JSONDecoder decoder_;
};

}  // namespace VanticRestKit
