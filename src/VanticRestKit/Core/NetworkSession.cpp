#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <utility>

namespace VanticRestKit {

NetworkSession::~NetworkSession() = default;

namespace {

class PlatformSession final : public NetworkSession {
public:
    explicit PlatformSession(std::shared_ptr<URLSession> session) : session_(std::move(session)) {}

    void loadData(LoadDataArguments arguments) override {
        session_->dataTask(std::move(arguments.fromURLRequest), std::move(arguments.completionHandler))
            ->resume();
    }

    AnyPublisher<Answer> loadDataPublisher(LoadDataPublisherArguments arguments) override {
        return session_->dataTaskPublisher(std::move(arguments.fromURLRequest)).eraseToAnyPublisher();
    }

private:
    std::shared_ptr<URLSession> session_;
};

}  // namespace

std::shared_ptr<NetworkSession> networkSession(std::shared_ptr<URLSession> session) {
    return std::make_shared<PlatformSession>(std::move(session));
}

}  // namespace VanticRestKit
