#include <VanticRestKit/Core/detail/ObservedService.h>

#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/platform/http/detail/Records.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <atomic>
#include <chrono>
#include <utility>

namespace VanticRestKit::detail {

namespace {

/// Forwards records, and makes one from an answer if none was received.
class Records {
public:
    Records(std::shared_ptr<const LoadObservation> observation, MetricsReceiver alsoTo)
        : observation_(std::move(observation)), alsoTo_(std::move(alsoTo)) {}

    void pass(const RequestMetrics& record) {
        hasPassed_.store(true);
        tell(record);
    }

    /// Reports state changes to the observer, and all progress to `alsoTo`.
    void progressed(const LoadProgress& progress, const ProgressReceiver& alsoTo) {
        if (state_.exchange(progress.state) != progress.state) observation_->stateChanged(progress);
        if (alsoTo) alsoTo(progress);
    }

    void answered(const Result<Data, Error>& body, std::chrono::steady_clock::time_point begun) const {
        if (hasPassed_.load()) return;
        Outcome outcome;
        if (body) outcome.data = *body;
        RequestMetrics record;
        describe(record, observation_->request(), outcome);
        if (!body) addFailure(body.error(), record);
        record.total = sinceStart(begun);
        tell(record);
    }

private:
    static void addFailure(const Error& error, RequestMetrics& record) {
        const auto* const failure = error.as<NetworkError>();
        if (failure == nullptr) {
            record.error = error;
            return;
        }
        if (failure->response()) record.status = failure->response()->statusCode();
        if (failure->underlyingError()) record.error = *failure->underlyingError();
        if (!record.status && !record.error) record.error = error;
    }

    void tell(const RequestMetrics& record) const {
        if (alsoTo_) alsoTo_(record);
        observation_->requestEnded(record);
    }

    const std::shared_ptr<const LoadObservation> observation_;
    const MetricsReceiver alsoTo_;
    std::atomic<bool> hasPassed_{false};
    std::atomic<LoadProgress::State> state_{LoadProgress::State::loading};
};

MetricsReceiver receiverOf(const std::shared_ptr<Records>& records) {
    return [records](const RequestMetrics& record) { records->pass(record); };
}

}  // namespace

ObservedService::ObservedService(std::shared_ptr<Serviceable> inner,
                                 std::shared_ptr<const LoadObservation> observation)
    : inner_(std::move(inner)), observation_(std::move(observation)) {}

ObservedService::~ObservedService() = default;

Serviceable::FetchArguments ObservedService::observed(FetchArguments arguments) const {
    auto records = std::make_shared<Records>(observation_, std::move(arguments.metrics));
    MetricsReceiver receiver = receiverOf(records);
    ProgressReceiver progress = [records, alsoTo = std::move(arguments.progress)](const LoadProgress& told) {
        records->progressed(told, alsoTo);
    };
    auto answered = [records = std::move(records), begun = std::chrono::steady_clock::now(),
                     completion = std::move(arguments.with).value()](Result<Data, Error> body) mutable {
        records->answered(body, begun);
        completion(std::move(body));
    };
    return {.with = std::move(answered), .metrics = std::move(receiver), .progress = std::move(progress)};
}

void ObservedService::fetch(FetchArguments arguments) { inner_->fetch(observed(std::move(arguments))); }

Cancellable ObservedService::start(FetchArguments arguments) {
    return inner_->start(observed(std::move(arguments)));
}

AnyPublisher<Data> ObservedService::fetch() { return publisher({}); }

AnyPublisher<Data> ObservedService::publisher(MetricsReceiver metrics) {
    const auto records = std::make_shared<Records>(observation_, std::move(metrics));
    return AnyPublisher<Data>::create([records, bodies = inner_->publisher(receiverOf(records))](
                                          const Subscriber<Data, Error>& subscriber) {
        const auto begun = std::chrono::steady_clock::now();
        return bodies.sink(
            [records, begun, subscriber](Data body) {
                records->answered(body, begun);
                subscriber.receive(std::move(body));
            },
            [records, begun, subscriber](Result<void, Error> end) {
                if (!end) records->answered(Failure(end.error()), begun);
                subscriber.complete(std::move(end));
            });
    });
}

}  // namespace VanticRestKit::detail
