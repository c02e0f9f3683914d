#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/platform/async/AsyncCall.h>
#include <VanticRestKit/platform/http/detail/SubscriberCompletion.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <utility>

namespace VanticRestKit {

NetworkSession::~NetworkSession() = default;

AnyPublisher<NetworkSession::Answer> NetworkSession::loadDataPublisher(LoadDataPublisherArguments arguments) {
    return AnyPublisher<Answer>::create(
        [this, request = std::move(arguments.fromURLRequest).value(),
         metrics = std::move(arguments.metrics)](const Subscriber<Answer, Error>& subscriber) {
            loadData({.fromURLRequest = request,
                      .completionHandler = detail::completionFor(subscriber),
                      .metrics = metrics});
            return Cancellable();
        });
}

Cancellable NetworkSession::start(LoadDataArguments arguments) {
    auto handler = std::make_shared<Completion>(std::move(arguments.completionHandler).value());
    return loadDataPublisher({.fromURLRequest = std::move(arguments.fromURLRequest).value(),
                              .metrics = std::move(arguments.metrics)})
        .sink([handler](Answer answer) { (*handler)(std::move(answer.first), std::move(answer.second), {}); },
              [handler](Result<void, Error> end) {
                  if (!end) (*handler)({}, nullptr, std::move(end).error());
              });
}

DispatchQueue NetworkSession::deliveryQueue() const { return detail::AsyncCall::sharedQueue(); }

namespace {

class PlatformSession final : public NetworkSession {
public:
    explicit PlatformSession(std::shared_ptr<URLSession> session) : session_(std::move(session)) {}

    void loadData(LoadDataArguments arguments) override {
        session_
            ->dataTask(std::move(arguments.fromURLRequest), std::move(arguments.completionHandler),
                       std::move(arguments.metrics), std::move(arguments.progress))
            ->resume();
    }

    AnyPublisher<Answer> loadDataPublisher(LoadDataPublisherArguments arguments) override {
        return session_->dataTaskPublisher(std::move(arguments.fromURLRequest), std::move(arguments.metrics))
            .eraseToAnyPublisher();
    }

    Cancellable start(LoadDataArguments arguments) override {
        auto task =
            session_->dataTask(std::move(arguments.fromURLRequest), std::move(arguments.completionHandler),
                               std::move(arguments.metrics), std::move(arguments.progress));
        task->resume();
        return Cancellable([task = std::move(task)] { task->cancel(); });
    }

    DispatchQueue deliveryQueue() const override { return session_->delegateQueue(); }

private:
    std::shared_ptr<URLSession> session_;
};

}  // namespace

std::shared_ptr<NetworkSession> networkSession(std::shared_ptr<URLSession> session) {
    return std::make_shared<PlatformSession>(std::move(session));
}

}  // namespace VanticRestKit
