#pragma once

/// \file
/// `ObservedService`: a service whose requests are observed.

#include <VanticRestKit/Core/detail/LoadObservation.h>
#include <VanticRestKit/Core/Serviceable.h>

#include <memory>

namespace VanticRestKit::detail {

/// Runs the requests of another service and reports each to the observer. If that service makes no records, they are
/// made from its answers.
class ObservedService final : public Serviceable {
public:
    /// Neither may be null.
    ObservedService(std::shared_ptr<Serviceable> inner, std::shared_ptr<const LoadObservation> observation);
    ~ObservedService() override;

    void fetch(FetchArguments arguments) override;
    AnyPublisher<Data> fetch() override;
    AnyPublisher<Data> publisher(MetricsReceiver metrics) override;
    [[nodiscard]] Cancellable start(FetchArguments arguments) override;
    DispatchQueue deliveryQueue() const override { return inner_->deliveryQueue(); }
    Error endedEarly(URLErrorCode code) const override { return inner_->endedEarly(code); }
    const LoadObservation* observation() const noexcept override { return observation_.get(); }

private:
    FetchArguments observed(FetchArguments arguments) const;

    const std::shared_ptr<Serviceable> inner_;
    const std::shared_ptr<const LoadObservation> observation_;
};

}  // namespace VanticRestKit::detail
