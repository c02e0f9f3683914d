#include <VanticRestKit/Testing/detail/StartPublisher.h>

#include <optional>
#include <utility>

namespace VanticRestKit::Testing::detail {

AnyPublisher<NetworkSession::Answer> publisherByStart(std::shared_ptr<NetworkSession> session,
                                                      NetworkSession::LoadDataPublisherArguments arguments) {
    using Answer = NetworkSession::Answer;
    return AnyPublisher<Answer>::create(
        [session = std::move(session), request = std::move(arguments.fromURLRequest).value(),
         metrics = std::move(arguments.metrics)](const Subscriber<Answer, Error>& subscriber) {
            const auto answered = [subscriber](std::optional<Data> data,
                                               std::shared_ptr<const URLResponse> response,
                                               std::optional<Error> error) {
                if (error) {
                    subscriber.complete(Failure(*std::move(error)));
                    return;
                }
                subscriber.receive(Answer(data ? *std::move(data) : Data(), std::move(response)));
                subscriber.complete();
            };
            return session->start(
                {.fromURLRequest = request, .completionHandler = answered, .metrics = metrics});
        });
}

}  // namespace VanticRestKit::Testing::detail
