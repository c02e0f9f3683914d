#include <gtest/gtest.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/platform/error/NSError.h>

#include "FakeSession.h"

#include <string>
#include <vector>

namespace VanticRestKit {
namespace {

/// A transport that overrides only the callback functions.
class SmallSession final : public NetworkSession {
public:
    void loadData(LoadDataArguments arguments) override {
        urls.push_back(arguments.fromURLRequest.value().url()->absoluteString());
        handlers.push_back(std::move(arguments.completionHandler).value());
    }

    std::vector<std::string> urls;
    std::vector<Completion> handlers;
};

class NetworkSessionTest : public testing::Test {
protected:
    Cancellable subscribe(const AnyPublisher<NetworkSession::Answer>& publisher) {
        return publisher.sink(
            [this](const NetworkSession::Answer& answer) { seen.emplace_back(answer.first.view()); },
            [this](const Result<void, Error>& end) { seen.push_back(end ? "end" : end.error().domain()); });
    }

    const URLRequest request{URL("https://api.example.test/v2/time")};
    SmallSession session;
    std::vector<std::string> seen;
};

TEST_F(NetworkSessionTest, ADefaultPublisherStartsATransferForEachSubscription) {
    const auto publisher = session.loadDataPublisher({.fromURLRequest = request});
    EXPECT_TRUE(session.urls.empty());
    const Cancellable first = subscribe(publisher);
    const Cancellable second = subscribe(publisher);
    EXPECT_EQ(session.urls, (std::vector<std::string>{"https://api.example.test/v2/time",
                                                      "https://api.example.test/v2/time"}));
    session.handlers[1](Data("b"), test::httpResponse(200), std::nullopt);
    session.handlers[0](Data("a"), test::httpResponse(200), std::nullopt);
    EXPECT_EQ(seen, (std::vector<std::string>{"b", "end", "a", "end"}));
}

TEST_F(NetworkSessionTest, ADefaultPublisherDeliversTheErrorOfTheTransfer) {
    const Cancellable subscription = subscribe(session.loadDataPublisher({.fromURLRequest = request}));
    session.handlers[0](Data("a"), test::httpResponse(200), NSError("D", 1));
    EXPECT_EQ(seen, std::vector<std::string>{"D"});
}

TEST_F(NetworkSessionTest, ADefaultPublisherDeliversAnEmptyBodyForAnAbsentOne) {
    const Cancellable subscription = subscribe(session.loadDataPublisher({.fromURLRequest = request}));
    session.handlers[0](std::nullopt, test::httpResponse(200), std::nullopt);
    EXPECT_EQ(seen, (std::vector<std::string>{"", "end"}));
}

TEST_F(NetworkSessionTest, CancellingADefaultPublisherStopsTheDelivery) {
    const Cancellable subscription = subscribe(session.loadDataPublisher({.fromURLRequest = request}));
    subscription.cancel();
    session.handlers[0](Data("a"), test::httpResponse(200), std::nullopt);
    EXPECT_TRUE(seen.empty());
}

TEST_F(NetworkSessionTest, TheDefaultStartIsBuiltOnTheCallbackAndCanBeCancelled) {
    const auto handler = [this](const std::optional<Data>& data, const auto&, const auto&) {
        seen.emplace_back(data ? data->view() : "none");
    };
    const Cancellable first = session.start({.fromURLRequest = request, .completionHandler = handler});
    const Cancellable second = session.start({.fromURLRequest = request, .completionHandler = handler});
    second.cancel();
    session.handlers[1](Data("b"), test::httpResponse(200), std::nullopt);
    session.handlers[0](Data("a"), test::httpResponse(200), std::nullopt);
    EXPECT_EQ(seen, std::vector<std::string>{"a"});
}

TEST_F(NetworkSessionTest, TheDefaultStartDeliversTheErrorOfTheTransfer) {
    const auto handler = [this](const std::optional<Data>& data, const auto& response,
                                const std::optional<Error>& error) {
        EXPECT_FALSE(data);
        EXPECT_EQ(response, nullptr);
        seen.push_back(error ? error->domain() : "none");
    };
    const Cancellable load = session.start({.fromURLRequest = request, .completionHandler = handler});
    session.handlers[0](std::nullopt, nullptr, NSError("D", 1));
    EXPECT_EQ(seen, std::vector<std::string>{"D"});
}

}  // namespace
}  // namespace VanticRestKit
