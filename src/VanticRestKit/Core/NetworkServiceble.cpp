#include <VanticRestKit/Core/NetworkActivityCounter.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkURLSession.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <utility>

namespace VanticRestKit {

namespace {

const std::shared_ptr<NetworkSession>& sharedSession() {
    static const auto& session =
        *new std::shared_ptr<NetworkSession>(networkSession(NetworkURLSession::sharedInstance().urlSesion));
    return session;
}

/// Increments the activity counter, and decrements it when destroyed.
class CountedActivity {
public:
    CountedActivity() { NetworkActivityCounter::increase(); }
    CountedActivity(CountedActivity&& other) noexcept : isCounted_(std::exchange(other.isCounted_, false)) {}
    CountedActivity& operator=(CountedActivity&&) = delete;
    ~CountedActivity() {
        if (isCounted_) NetworkActivityCounter::decrease();
    }

private:
    bool isCounted_ = true;
};

bool isCancelled(const Error& error) {
    return error.domain() == NSURLErrorDomain &&
           error.code() == static_cast<std::int64_t>(URLErrorCode::cancelled);
}

}  // namespace

std::shared_ptr<NetworkServiceble> NetworkServiceble::make(RequestArguments arguments) {
    return std::shared_ptr<NetworkServiceble>(new NetworkServiceble(
        std::move(arguments.with), arguments.and_ ? std::move(arguments.and_) : sharedSession(),
        std::move(arguments.logError)));
}

std::shared_ptr<NetworkServiceble> NetworkServiceble::make(URLArguments arguments) {
    return make({.with = URLRequest(std::move(arguments.with)),
                 .and_ = std::move(arguments.and_),
                 .logError = std::move(arguments.logError).value()});
}

NetworkServiceble::NetworkServiceble(URLRequest request, std::shared_ptr<NetworkSession> session,
                                     LogError logError)
    : urlRequest_(std::move(request)), session_(std::move(session)), logError_(std::move(logError)) {}

void NetworkServiceble::fetch(FetchArguments arguments) {
    NetworkActivityCounter::increase();
    auto answered = [weak = weak_from_this(), completion = std::move(arguments.with).value()](
                        std::optional<Data> data, std::shared_ptr<const URLResponse> response,
                        std::optional<Error> error) mutable {
        if (const std::shared_ptr<NetworkServiceble> self = weak.lock()) {
            completion(self->validate(std::move(data), std::move(response), std::move(error)));
        } else {
            completion(Failure(NetworkError::internalSDKError(
                "Lost reference to self when escaping closure for fetch returned")));
        }
        NetworkActivityCounter::decrease();
    };
    session_->loadData({.fromURLRequest = urlRequest_,
                        .completionHandler = std::move(answered),
                        .metrics = std::move(arguments.metrics),
                        .progress = std::move(arguments.progress)});
}

AnyPublisher<Data> NetworkServiceble::fetch() { return publisher({}); }

AnyPublisher<Data> NetworkServiceble::publisher(MetricsReceiver metrics) {
    NetworkActivityCounter::increase();
    // An answer that counts as a failure passes both steps, and so decrements the counter twice.
    return session_->loadDataPublisher({.fromURLRequest = urlRequest_, .metrics = std::move(metrics)})
        .tryMap([self = shared_from_this()](NetworkSession::Answer answer) {
            NetworkActivityCounter::decrease();
            return self->validate(std::move(answer.first), std::move(answer.second), std::nullopt);
        })
        .mapError([self = shared_from_this()](Error error) {
            NetworkActivityCounter::decrease();
            return error;
        })
        .eraseToAnyPublisher();
}

Cancellable NetworkServiceble::start(FetchArguments arguments) {
    auto answered = [self = shared_from_this(), activity = CountedActivity(),
                     completion = std::move(arguments.with).value()](
                        std::optional<Data> data, std::shared_ptr<const URLResponse> response,
                        std::optional<Error> error) mutable {
        if (error && isCancelled(*error)) {
            // Not reported to `logError`: the request was cancelled by its caller, or together with all requests of its
            // session.
            completion(Failure(
                NetworkError::requestFailed(self->urlRequest_, std::move(response), *std::move(error))));
            return;
        }
        completion(self->validate(std::move(data), std::move(response), std::move(error)));
    };
    return session_->start({.fromURLRequest = urlRequest_,
                            .completionHandler = std::move(answered),
                            .metrics = std::move(arguments.metrics),
                            .progress = std::move(arguments.progress)});
}

Error NetworkServiceble::endedEarly(URLErrorCode code) const {
    const auto failure =
        NetworkError::requestFailed(urlRequest_, nullptr, detail::makeURLError({code}, urlRequest_.url()));
    if (logError_ && code != URLErrorCode::cancelled) logError_(failure);
    return failure;
}

Result<Data, Error> NetworkServiceble::validate(std::optional<Data> data,
                                                std::shared_ptr<const URLResponse> response,
                                                std::optional<Error> error) const {
    const auto reported = [this](const NetworkError& failure) -> Result<Data, Error> {
        if (logError_) logError_(failure);
        return Failure(failure);
    };
    if (error) {
        return reported(NetworkError::requestFailed(urlRequest_, std::move(response), *std::move(error)));
    }
    const HTTPURLResponse* const http = response ? response->asHTTP() : nullptr;
    if (http == nullptr) {
        return Failure(NetworkError::notAHTTPResponse(
            urlRequest_, std::move(response),
            "Unable to cast to http responese for a http request, so unable to check http status codes"));
    }
    const std::shared_ptr<const HTTPURLResponse> head(response, http);
    if (http->statusCode() >= 400) {
        return reported(NetworkError::httpError(urlRequest_, head, std::move(data)));
    }
    if (data) return *std::move(data);
    return reported(NetworkError::dataNotFoundInResponse(urlRequest_, head, ""));
}

}  // namespace VanticRestKit
