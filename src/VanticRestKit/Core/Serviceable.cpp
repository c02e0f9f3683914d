#include <VanticRestKit/Core/Serviceable.h>
#include <VanticRestKit/platform/async/AsyncCall.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>

#include <memory>
#include <utility>

namespace VanticRestKit {

Serviceable::~Serviceable() = default;

AnyPublisher<Data> Serviceable::fetch() {
    return AnyPublisher<Data>::create([this](const Subscriber<Data, Error>& subscriber) {
        const auto ended = [subscriber](Result<Data, Error> body) {
            if (!body) {
                subscriber.complete(Failure(std::move(body).error()));
                return;
            }
            subscriber.receive(std::move(*body));
            subscriber.complete();
        };
        fetch({.with = ended});
        return Cancellable();
    });
}

AnyPublisher<Data> Serviceable::publisher(MetricsReceiver) { return fetch(); }

Cancellable Serviceable::start(FetchArguments arguments) {
    auto completion = std::make_shared<Completion>(std::move(arguments.with).value());
    return publisher(std::move(arguments.metrics))
        .sink([completion](Data body) { (*completion)(std::move(body)); },
              [completion](Result<void, Error> end) {
                  if (!end) (*completion)(Failure(std::move(end).error()));
              });
}

DispatchQueue Serviceable::deliveryQueue() const { return detail::AsyncCall::sharedQueue(); }

Error Serviceable::endedEarly(URLErrorCode code) const { return detail::makeURLError({code}, std::nullopt); }

}  // namespace VanticRestKit
