#pragma once

/// \file
/// `Loader`: guarantees that one resource has at most one load under way.

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

/// The part of a load that knows the type.
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

/// Loads a `T` by way of a `Serviceable`, one load at a time, as often as wanted.
///
/// Drive a loader from one thread at a time. A load does not keep the loader: if it goes before the answer,
/// the completion is not called, except with a failure of the request.
template <class T>
class Loader final : public detail::LoaderCore {
public:
    /// The error of a load.
    using LoaderError = VanticRestKit::LoaderError;
    /// Whether a load is under way.
    using State = LoaderState;
    /// Turns a body into a value.
    using Decoding = typename detail::LoadOf<T>::Decoding;
    /// Receives the value, or why there is none.
    using Completion = typename detail::LoadOf<T>::Completion;

    /// The argument of `make`.
    struct MakeArguments {
        /// Must not be null.
        Required<std::shared_ptr<Serviceable>> with;
    };
    /// The arguments of `load`.
    struct LoadArguments {
        /// Makes the value of the body.
        Required<Decoding> withDecoder;
    };
    /// The argument of `publisher`.
    struct PublisherArguments {
        /// Decodes the body.
        Required<JSONDecoder> decoder;
    };

    /// A loader that is idle. Any thread.
    static std::shared_ptr<Loader> make(MakeArguments arguments) {
        return std::shared_ptr<Loader>(new Loader(std::move(arguments.with)));
    }

    /// Starts a load. Does nothing while one is under way: the completion of this call is then never called.
    ///
    /// Else it is called once at most, where the service delivers, after the loader has become idle, so that
    /// it may start the next load. Decoding runs there too.
    void load(LoadArguments arguments, Completion completion) {
        if (isBusy()) return;
        start(std::make_unique<detail::LoadOf<T>>(std::move(arguments.withDecoder), std::move(completion)));
    }

    /// A publisher of the value. Each subscription runs the request anew, whether the loader is busy or not;
    /// failures arrive as they are, not as a `LoaderError`.
    AnyPublisher<T> load(PublisherArguments arguments) const {
        return service()->fetch().template decode<T>(reader(std::move(arguments)));
    }

    /// The same with an empty value for a JSON null and for every failure; it never fails.
    AnyPublisher<std::optional<T>, Never> loadOptional(PublisherArguments arguments) const {
        return service()
            ->fetch()
            .template decode<std::optional<T>>(reader(std::move(arguments)))
            .replaceError(std::nullopt);
    }

    /// What runs the request.
    const std::shared_ptr<Serviceable>& service() const noexcept { return LoaderCore::service(); }

private:
    /// What a publisher decodes with. It keeps the service alive, which the publisher of a host's own may need.
    struct Reader : detail::BodyReader {
        std::shared_ptr<Serviceable> service;
    };

    explicit Loader(std::shared_ptr<Serviceable> service) : LoaderCore(std::move(service)) {}

    Reader reader(PublisherArguments arguments) const {
        return {{std::move(arguments.decoder).value(), service()->observation()}, service()};
    }
};

}  // namespace VanticRestKit
