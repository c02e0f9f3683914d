#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <optional>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

std::shared_ptr<URLSession> makeSession() { return URLSession::make(URLSessionConfiguration::default_()); }

/// Records what a publisher of the session sends.
struct Receiver {
    std::vector<URLSession::Output> values;
    std::optional<Result<void, Error>> end;
    Event ended;

    [[nodiscard]] Cancellable subscribeTo(const AnyPublisher<URLSession::Output, Error>& publisher) {
        return publisher.sink([this](URLSession::Output value) { values.push_back(std::move(value)); },
                              [this](Result<void, Error> result) {
                                  end = std::move(result);
                                  ended.signal();
                              });
    }
};

}  // namespace

TEST(Publisher, SendsBodyAndResponseAndEnds) {
    FaultServer server(always(answer(404, "nothing")));
    Receiver receiver;
    const auto publisher = makeSession()->dataTaskPublisher(requestOf(server.url()));
    const Cancellable subscription = receiver.subscribeTo(publisher);
    ASSERT_TRUE(receiver.ended.wait());
    ASSERT_EQ(receiver.values.size(), 1U);
    EXPECT_EQ(receiver.values[0].first.view(), "nothing");
    EXPECT_EQ(receiver.values[0].second->asHTTP()->statusCode(), 404);
    EXPECT_TRUE(receiver.end->has_value());
}

TEST(Publisher, FailsWithTheTransportsError) {
    const auto session = makeSession();
    Receiver receiver;
    const auto url = "http://127.0.0.1:" + std::to_string(unusedPort()) + "/";
    const Cancellable subscription = receiver.subscribeTo(session->dataTaskPublisher(requestOf(url)));
    ASSERT_TRUE(receiver.ended.wait());
    EXPECT_TRUE(receiver.values.empty());
    ASSERT_FALSE(receiver.end->has_value());
    EXPECT_EQ(receiver.end->error().code(), -1004);
}

TEST(Publisher, SendsOneRequestForEachSubscription) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    const auto publisher = session->dataTaskPublisher(requestOf(server.url("/published")));
    load(*session, server.url("/loaded"));
    EXPECT_EQ(server.requests().size(), 1U);
    Receiver first;
    Receiver second;
    const Cancellable one = first.subscribeTo(publisher);
    const Cancellable two = second.subscribeTo(publisher);
    ASSERT_TRUE(first.ended.wait());
    ASSERT_TRUE(second.ended.wait());
    EXPECT_EQ(server.requests().size(), 3U);
}

TEST(Publisher, CancellingReachesTheSocketAndDeliversNothing) {
    for (const bool byDropping : {false, true}) {
        FaultServer server([](FaultConnection& connection) {
            if (connection.readRequest()) connection.stall();
        });
        const auto session = makeSession();
        Receiver receiver;
        {
            const Cancellable subscription =
                receiver.subscribeTo(session->dataTaskPublisher(requestOf(server.url())));
            ASSERT_TRUE(server.waitForRequests(1));
            if (!byDropping) subscription.cancel();
        }
        EXPECT_TRUE(server.waitForClosedByClient(1));
        // The delegate queue is serial, so everything delivered before this load has arrived.
        FaultServer other(always(answer(200, "ok")));
        EXPECT_EQ(load(*session, other.url()).body(), "ok");
        EXPECT_TRUE(receiver.values.empty());
        EXPECT_FALSE(receiver.end.has_value());
    }
}
