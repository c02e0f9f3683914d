// What resources send over the shared session to the test's own server.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkURLSession.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <Core/ActivityCounter.h>
#include <Core/FakeContext.h>
#include <support/Event.h>
#include <support/FaultServer.h>

namespace VanticRestKit {
namespace {

using Outcome = Result<double, LoaderError>;

/// Answers "/number" with a number, "/null" with a JSON null and anything else with 500.
void serve(test::FaultConnection& connection) {
    while (const auto request = connection.readRequest()) {
        const bool isNumber = request->target.starts_with("/number");
        const bool isNull = request->target.starts_with("/null");
        if (!connection.send(
                test::answer(isNumber || isNull ? 200 : 500, std::string_view(isNull ? "null" : "1.5"))))
            return;
    }
}

/// Does not override the service, so that its resources use the shared session.
class HostContext final : public virtual Context {
public:
    explicit HostContext(URL base) : base_(std::move(base)) {}
    URL baseURL() const override { return base_; }
    std::map<std::string, std::string> HTTPHeaderFields() const override { return {{"X-Key", "k"}}; }
    LogError logError() const override {
        return [this](const Error&) { reports.signal(); };
    }

    const test::Event reports;

private:
    URL base_;
};

struct NumberRoute {
    std::string path() const { return "number"; }
    std::vector<URLQueryItem> queryItems{{"a", "1"}};
    std::optional<Data> postData = Data("{}");
    std::string httpMethod = "POST";
};

struct PathRoute {
    std::string text{};
    std::string path() const { return text; }
};

class SharedSession : public ::testing::Test {
protected:
    URL at(const std::string& path) const { return test::url(server.url(path).c_str()); }
    Resource<double> resourceAt(const std::string& path) const {
        return *Resource<double>::make({.with = PathRoute{path}}, context);
    }

    Outcome outcomeOf(const Resource<double>& resource) const {
        const test::Event completed;
        Outcome outcome = Failure(LoaderError::unknowError());
        resource.load({.with = [&outcome, completed](Outcome result) {
            outcome = std::move(result);
            completed.signal();
        }});
        EXPECT_TRUE(completed.wait());
        return outcome;
    }

    /// The values of a publisher, and whether it finished without an error.
    template <class T, class E>
    std::pair<std::vector<T>, bool> allOf(const AnyPublisher<T, E>& publisher) const {
        const test::Event ended;
        std::vector<T> values;
        bool isGood = false;
        const Cancellable subscription =
            publisher.sink([&values](T value) { values.push_back(std::move(value)); },
                           [&isGood, ended](const Result<void, E>& end) {
                               isGood = static_cast<bool>(end);
                               ended.signal();
                           });
        EXPECT_TRUE(ended.wait());
        return {values, isGood};
    }

    /// The connection on which the last request arrived.
    std::size_t lastConnection() const { return server.requests().back().connection; }

    test::FaultServer server{serve};
    HostContext context{at("/")};
};

TEST_F(SharedSession, SendsTheRequestOfAResource) {
    URLRequest request(at("/number?q=x"));
    request.setHTTPMethod("PATCH");
    request.setValue("yes", "X-Mine");
    request.setHTTPBody(Data("body"));
    const Outcome outcome =
        outcomeOf(Resource<double>({.withURLRequest = request, .andDecoder = JSONDecoder()}));
    ASSERT_TRUE(outcome);
    EXPECT_EQ(*outcome, 1.5);
    ASSERT_EQ(server.requests().size(), 1U);
    const test::RawRequest sent = server.requests().front();
    EXPECT_EQ(sent.method, "PATCH");
    EXPECT_EQ(sent.target, "/number?q=x");
    EXPECT_EQ(sent.header("x-mine"), "yes");
    EXPECT_EQ(sent.body, "body");
}

TEST_F(SharedSession, SendsTheRequestOfAResourceWhoseGivenServiceIsIgnored) {
    const auto resource = Resource<double>::make(
        {.with = NumberRoute{}, .service = std::shared_ptr<Serviceable>(), .andDecoder = JSONDecoder()},
        context);
    ASSERT_TRUE(resource);
    ASSERT_TRUE(outcomeOf(*resource));
    ASSERT_EQ(server.requests().size(), 1U);
    const test::RawRequest sent = server.requests().front();
    EXPECT_EQ(sent.method, "POST");
    EXPECT_EQ(sent.target, "/number?a=1");
    EXPECT_EQ(sent.header("x-key"), "k");
    EXPECT_EQ(sent.body, "{}");
}

TEST_F(SharedSession, SendsAPlainGetOf60SecondsForAURL) {
    ASSERT_TRUE(outcomeOf(Resource<double>({.withURL = at("/number"), .andDecoder = JSONDecoder()})));
    EXPECT_EQ(server.requests().front().method, "GET");
    EXPECT_EQ(server.requests().front().body, "");
    const auto service = std::static_pointer_cast<NetworkServiceble>(detail::serviceFor(at("/number")));
    EXPECT_EQ(service->urlRequest().timeoutInterval().count(), 60.0);
    EXPECT_EQ(service->urlRequest().httpMethod(), "GET");
    EXPECT_FALSE(service->logError());
}

TEST_F(SharedSession, IsUsedByTheSharedInstance) {
    const test::Event answered;
    const auto task = NetworkURLSession::sharedInstance().urlSesion->dataTask(
        URLRequest(at("/number")),
        [answered](const std::optional<Data>&, const std::shared_ptr<const URLResponse>&,
                   const std::optional<Error>&) { answered.signal(); });
    task->resume();
    ASSERT_TRUE(answered.wait());
    ASSERT_TRUE(outcomeOf(resourceAt("number")));
    EXPECT_EQ(server.requests().size(), 2U);
    EXPECT_EQ(server.connectionCount(), 1U) << "another session would have opened a connection of its own";
}

TEST_F(SharedSession, PublishesAValue) {
    const auto [values, isGood] = allOf(resourceAt("number").resourceLoader());
    EXPECT_EQ(values, std::vector<double>{1.5});
    EXPECT_TRUE(isGood);
    EXPECT_EQ(server.requests().front().header("x-key"), "k");
}

TEST_F(SharedSession, PublishesAnUnchangedFailureAndReportsIt) {
    const auto [values, isGood] = allOf(resourceAt("fault").resourceLoader());
    EXPECT_TRUE(values.empty());
    EXPECT_FALSE(isGood);
    EXPECT_TRUE(context.reports.wait());
}

TEST_F(SharedSession, PublishesAnOptionalForEveryOutcome) {
    const auto number = allOf(resourceAt("number").optionalResourceLoader());
    EXPECT_EQ(number.first, std::vector<std::optional<double>>{1.5});
    for (const char* const path : {"null", "fault"}) {
        const auto none = allOf(resourceAt(path).optionalResourceLoader());
        EXPECT_EQ(none.first, std::vector<std::optional<double>>{std::nullopt}) << path;
        EXPECT_TRUE(none.second) << path;
    }
}

TEST_F(SharedSession, SendsNothingForAPublisherWithoutASubscriber) {
    (void)resourceAt("number?unsubscribed").resourceLoader();
    ASSERT_TRUE(outcomeOf(resourceAt("number")));
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(SharedSession, RaisesTheActivityCounterWhenAPublisherIsRequested) {
    test::zeroActivityCounter();
    const Resource<double> resource = resourceAt("number");
    const AnyPublisher<double> publisher = resource.resourceLoader();
    EXPECT_EQ(test::activityCounter(), 1);
    const auto optionalPublisher = resource.optionalResourceLoader();
    EXPECT_EQ(test::activityCounter(), 2);
    (void)allOf(publisher);
    EXPECT_EQ(test::activityCounter(), 1);
    (void)allOf(optionalPublisher);
    EXPECT_EQ(test::activityCounter(), 0);
    (void)allOf(resourceAt("fault").optionalResourceLoader());
    EXPECT_EQ(test::activityCounter(), -1) << "a failure status lowers the counter twice";
    test::zeroActivityCounter();
}

}  // namespace
}  // namespace VanticRestKit
