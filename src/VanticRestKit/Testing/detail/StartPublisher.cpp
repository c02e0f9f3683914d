#include <VanticRestKit/Testing/detail/StartPublisher.h>

#include <VanticRestKit/platform/http/detail/SubscriberCompletion.h>

#include <utility>

namespace VanticRestKit::Testing::detail {

AnyPublisher<NetworkSession::Answer> publisherByStart(std::shared_ptr<NetworkSession> session,
                                                      NetworkSession::LoadDataPublisherArguments arguments) {
    using Answer = NetworkSession::Answer;
    return AnyPublisher<Answer>::create(
        [session = std::move(session), request = std::move(arguments.fromURLRequest).value(),
         metrics = std::move(arguments.metrics)](const Subscriber<Answer, Error>& subscriber) {
            return session->start({.fromURLRequest = request,
                                   .completionHandler = VanticRestKit::detail::completionFor(subscriber),
                                   .metrics = metrics});
        });
}

}  // namespace VanticRestKit::Testing::detail
