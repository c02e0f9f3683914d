#pragma once

/// \file
/// Cancellable loads of a `Resource`. Hosts use `Resource`.

#include <VanticRestKit/Core/BodyReader.h>
#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/Serviceable.h>
#include <VanticRestKit/platform/async/AsyncCall.h>
#include <VanticRestKit/platform/async/LoadOptions.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/result/Result.h>

#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit::detail {

/// One load: fetches the body, decodes it on the queue on which it arrives, and delivers the outcome.
template <class T>
class ResourceLoad final : public AsyncCall {
public:
    using Outcome = Result<T, LoaderError>;
    using Completion = UniqueFunction<void(Outcome)>;

    ResourceLoad(std::shared_ptr<Serviceable> service, BodyReader reader, LoadOptions options,
                 Completion completion)
        : AsyncCall(std::move(options), service->deliveryQueue()),
          service_(std::move(service)),
          reader_(std::move(reader)),
          completion_(std::move(completion)) {}

private:
    Cancellable startWork() override {
        return service_->start({.with = [self = shared_from_this(),
                                         this](Result<Data, Error> fetched) { arrived(std::move(fetched)); },
                                .progress = progressReceiver()});
    }

    void arrived(Result<Data, Error> fetched) {
        if (!settle()) return;
        if (!fetched) {
            outcome_.emplace(Failure(LoaderError::serverError(std::move(fetched).error())));
        } else if (Result<T, Error> decoded = reader_.template decode<T>(*fetched)) {
            outcome_.emplace(std::move(decoded).value());
        } else {
            outcome_.emplace(Failure(LoaderError::failedToDecode(std::move(decoded).error())));
        }
        settled();
    }

    void deliver(std::optional<URLErrorCode> early) override {
        if (early) outcome_.emplace(Failure(LoaderError::serverError(service_->endedEarly(*early))));
        Completion completion = std::move(completion_);
        completion(*std::move(outcome_));
    }

    void release() override { const Completion released = std::move(completion_); }

    const std::shared_ptr<Serviceable> service_;
    const BodyReader reader_;
    Completion completion_;
    std::optional<Outcome> outcome_;
};

}  // namespace VanticRestKit::detail
