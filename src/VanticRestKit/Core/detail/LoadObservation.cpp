#include <VanticRestKit/Core/detail/LoadObservation.h>

#include <VanticRestKit/Core/BodyReader.h>
#include <VanticRestKit/Core/detail/Redaction.h>
#include <VanticRestKit/Core/detail/ToleranceSampler.h>
#include <VanticRestKit/platform/json/DecodingError.h>

#include <utility>

namespace VanticRestKit::detail {

void noteDecoding(const LoadObservation& observation, const Data& body, const Error* error,
                  std::string_view typeName, Diagnosis (*explain)(const Data&)) {
    observation.decoded(body, error, typeName, explain);
}

LoadObservation::LoadObservation(std::shared_ptr<RequestObserver> observer, URLRequest request,
                                 std::int64_t firstAttempt)
    : observer_(std::move(observer)), request_(std::move(request)), firstAttempt_(firstAttempt) {}

std::string LoadObservation::shown(const std::string& address) const {
    return observer_->options().revealsAddresses ? address : redactedAddress(address);
}

void LoadObservation::requestEnded(RequestMetrics record) const {
    record.attempt += firstAttempt_ - 1;
    record.url = shown(record.url);
    if (record.error && !observer_->options().revealsAddresses) {
        record.error = withoutDetails(*record.error);
    }
    observer_->requestEnded(record);
}

void LoadObservation::stateChanged(const LoadProgress& progress) const {
    LoadStateChange change{.progress = progress};
    if (request_.url()) change.url = shown(request_.url()->absoluteString());
    observer_->loadStateChanged(change);
}

void LoadObservation::decoded(const Data& body, const Error* error, std::string_view typeName,
                              Diagnosis (*explain)(const Data&)) const {
    if (error != nullptr) {
        failed(body, *error, typeName);
        return;
    }
    const std::shared_ptr<ToleranceSampler>& sampler = observer_->sampler();
    if (!sampler || !sampler->choosesNext()) return;
    ExplainedDocument document{.typeName = std::string(typeName), .bodySize = body.size()};
    if (request_.url()) document.url = shown(request_.url()->absoluteString());
    sampler->explain(observer_, std::move(document), body, explain);
}

void LoadObservation::failed(const Data& body, const Error& error, std::string_view typeName) const {
    const bool isWhole = observer_->options().includesBodies;
    // The decoder's own errors contain locations and types of the document, but none of its values.
    const bool isSafe = error.as<DecodingError>() != nullptr;
    DecodingFailure failure{.typeName = std::string(typeName),
                            .error = isWhole || isSafe ? error : withoutDetails(error),
                            .bodySize = body.size()};
    if (request_.url()) failure.url = shown(request_.url()->absoluteString());
    if (isWhole) failure.body = body;
    observer_->decodingFailed(failure);
}

}  // namespace VanticRestKit::detail
