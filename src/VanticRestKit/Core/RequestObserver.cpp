#include <VanticRestKit/Core/RequestObserver.h>

#include <VanticRestKit/Core/detail/ToleranceSampler.h>

#include <utility>

namespace VanticRestKit {

RequestObserver::RequestObserver(ObserverOptions options)
    : options_(std::move(options)),
      sampler_(options_.explainedShare > 0 ? std::make_shared<detail::ToleranceSampler>(options_) : nullptr) {
}

RequestObserver::~RequestObserver() = default;

void RequestObserver::requestEnded(const RequestMetrics&) {}

void RequestObserver::decodingFailed(const DecodingFailure&) {}

void RequestObserver::documentExplained(const ExplainedDocument&) {}

void RequestObserver::loadStateChanged(const LoadStateChange&) {}

void RequestObserver::operationWillNeverReturn(std::string_view) {}

}  // namespace VanticRestKit
