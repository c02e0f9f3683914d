#pragma once

/// \file
/// `Loader`: runs at most one load at a time.

#include <VanticRestKit/Core/BodyReader.h>
#include <VanticRestKit/Core/LoaderCore.h>
#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/Core/Serviceable.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/publisher/AnyPublisher.h>
#include <VanticRestKit/platform/result/Result.h>

#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit {

namespace detail {

/// The type-dependent part of a load.
template <class T>
class LoadOf final : public Load {
public:
    using Decoding = UniqueFunction<Result<T, Error>(const Data&)>;
    using Completion = UniqueFunction<void(Result<T, LoaderError>)>;

    LoadOf(Decoding decoding, Completion completion)
        : decoding_(std::move(decoding)), completion_(std::move(completion)) {}

    void decode(const Data& body) override { decoded_.emplace(decoding_(body)); }
    void deliver() override {
        if (*decoded_) {
            completion_(std::move(*decoded_).value());
        } else {
            completion_(Failure(LoaderError::failedToDecode(std::move(*decoded_).error())));
        }
    }
    void fail(Error error) override { completion_(Failure(LoaderError::serverError(std::move(error)))); }

private:
    Decoding decoding_;
    Completion completion_;
    std::optional<Result<T, Error>> decoded_;
};

}  // namespace detail

/// Loads a `T` through a `Serviceable`, one load at a time, any number of times.
///
/// Use a loader from one thread at a time. A load does not keep the loader alive: if the loader is destroyed before the
/// answer arrives, the completion is not called, except with a failure of the request.
template <class T>
class Loader final : public detail::LoaderCore {
public:
    /// The error of a load.
    using LoaderError = VanticRestKit::LoaderError;
    /// Whether a load is in progress.
    using State = LoaderState;
    /// Converts a body to a value.
    using Decoding = typename detail::LoadOf<T>::Decoding;
    /// Receives the value or the error.
    using Completion = typename detail::LoadOf<T>::Completion;

    /// The argument of `make`.
    struct MakeArguments {
        /// Must not be null.
        Required<std::shared_ptr<Serviceable>> with;
    };
    /// The arguments of `load`.
    struct LoadArguments {
        /// Converts the body to a value.
        Required<Decoding> withDecoder;
    };
    /// The argument of `publisher`.
    struct PublisherArguments {
        /// Decodes the body.
        Required<JSONDecoder> decoder;
    };

    /// Returns an idle loader. Any thread.
    static std::shared_ptr<Loader> make(MakeArguments arguments) {
        return std::shared_ptr<Loader>(new Loader(std::move(arguments.with)));
    }

    /// Starts a load. Does nothing while one is in progress: the completion is then never called.
    ///
    /// Otherwise it is called at most once, on the queue on which the service delivers, after the loader has become
    /// idle, so that it may start the next load. Decoding runs there too.
    void load(LoadArguments arguments, Completion completion) {
        if (isBusy()) return;
        start(std::make_unique<detail::LoadOf<T>>(std::move(arguments.withDecoder), std::move(completion)));
    }

    /// A publisher of the value. Each subscription sends a new request, whether the loader is busy or not; failures are
    /// not wrapped in a `LoaderError`.
    AnyPublisher<T> load(PublisherArguments arguments) const {
        return service()->fetch().template decode<T>(reader(std::move(arguments)));
    }

    /// The same, but with an empty value for a JSON null and for any failure; it never fails.
    AnyPublisher<std::optional<T>, Never> loadOptional(PublisherArguments arguments) const {
        return service()
            ->fetch()
            .template decode<std::optional<T>>(reader(std::move(arguments)))
            .replaceError(std::nullopt);
    }

    /// The service that runs the request.
    const std::shared_ptr<Serviceable>& service() const noexcept { return LoaderCore::service(); }

private:
    /// The decoding step of a publisher. It keeps the service alive, which a publisher of a host's own service may
    /// need.
    struct Reader : detail::BodyReader {
        std::shared_ptr<Serviceable> service;
    };

    explicit Loader(std::shared_ptr<Serviceable> service) : LoaderCore(std::move(service)) {}

    Reader reader(PublisherArguments arguments) const {
        return {{std::move(arguments.decoder).value(), service()->observation()}, service()};
    }
};

}  // namespace VanticRestKit
