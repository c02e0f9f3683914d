#pragma once

/// \file
/// `RetryingService`: the service that `retrying` returns.

#include <VanticRestKit/Core/Retrying.h>
#include <VanticRestKit/Core/Serviceable.h>

#include <memory>

namespace VanticRestKit::detail {

/// Runs the request of another service, each time as one `RetryRun`. Immutable.
class RetryingService final : public Serviceable, public std::enable_shared_from_this<RetryingService> {
public:
    /// The functions of the policy's environment are not empty.
    RetryingService(std::shared_ptr<Serviceable> service, RetryPolicy policy);

    const std::shared_ptr<Serviceable>& service() const noexcept { return service_; }
    const RetryPolicy& policy() const noexcept { return policy_; }

    /// Like `NetworkServiceble::fetch`, it does not keep this object alive: once it is destroyed, there are no more
    /// attempts.
    void fetch(FetchArguments arguments) override;
    AnyPublisher<Data> fetch() override { return publisher({}); }
    AnyPublisher<Data> publisher(MetricsReceiver metrics) override;
    [[nodiscard]] Cancellable start(FetchArguments arguments) override;

    DispatchQueue deliveryQueue() const override { return service_->deliveryQueue(); }
    Error endedEarly(URLErrorCode code) const override { return service_->endedEarly(code); }
    const LoadObservation* observation() const noexcept override { return service_->observation(); }

private:
    const std::shared_ptr<Serviceable> service_;
    const RetryPolicy policy_;
};

}  // namespace VanticRestKit::detail
