#include <gtest/gtest.h>
#include <VanticRestKit/Core/HrefURI.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/dispatch/detail/Probes.h>
#include <VanticRestKit/platform/json/DecodingError.h>
#include <VanticRestKit/platform/json/Table.h>

#include <Core/ActivityCounter.h>
#include <Core/FakeContext.h>
#include <Core/FakeSession.h>

namespace VanticRestKit {
namespace {

using Outcome = Result<double, LoaderError>;

struct PostURI {
    std::string path() const { return "v2/thing"; }
    std::vector<URLQueryItem> queryItems{{"a", "1"}};
    std::optional<Data> postData = Data("{}");
    std::string httpMethod = "POST";
};

/// Can only be constructed by decoding.
struct Answer {
    explicit Answer(mapping::Fresh) {}
    std::string text{};
};

}  // namespace

template <>
const TypePlan& planOf<Answer>() {
    static const TypePlan& plan = mapping::object<Answer>(mapping::defaulted<&Answer::text>("text"));
    return plan;
}

namespace {

/// Resources that use a fake session. Outcomes are recorded on the session's queue, and `reply` waits for that.
class ResourceTest : public ::testing::Test {
protected:
    Resource<double> makeResource() {
        const std::optional<Resource<double>> made = Resource<double>::make({.with = PostURI{}}, context);
        EXPECT_TRUE(made);
        return *made;
    }

    void load(const Resource<double>& resource) {
        resource.load({.with = [this](Outcome outcome) { outcomes.push_back(std::move(outcome)); }});
    }

    /// The outcome of one load that gets this reply.
    Outcome outcomeOf(test::Reply reply) {
        load(makeResource());
        context.session->reply(std::move(reply));
        EXPECT_EQ(outcomes.size(), 1U);
        if (outcomes.empty()) return Failure(LoaderError::unknowError());
        return outcomes.front();
    }

    test::FakeContext context;
    std::vector<Outcome> outcomes;
};

TEST_F(ResourceTest, TheRequestCombinesRouteAndContext) {
    context.headers = {{"X-Key", "k"}};
    context.timeout = 12;
    load(makeResource());
    context.session->reply(test::answer(200, "1"));
    const std::vector<URLRequest> requests = context.session->requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].url()->absoluteString(), "https://api.example.test/v2/thing?a=1");
    EXPECT_EQ(requests[0].httpMethod(), "POST");
    EXPECT_EQ(requests[0].httpBody(), Data("{}"));
    EXPECT_EQ(requests[0].allHTTPHeaderFields(), (std::map<std::string, std::string>{{"X-Key", "k"}}));
    EXPECT_EQ(requests[0].timeoutInterval().count(), 12.0);
}

TEST_F(ResourceTest, TheRequestIsBuiltAtConstruction) {
    const Resource<double> resource = makeResource();
    context.headers = {{"X-Late", "1"}};
    context.base = test::url("https://late.test");
    load(resource);
    context.session->reply(test::answer(200, "1"));
    EXPECT_EQ(context.session->requests()[0].url()->host(), "api.example.test");
    EXPECT_TRUE(context.session->requests()[0].allHTTPHeaderFields().empty());
}

TEST_F(ResourceTest, TheContextMayBeDestroyedBeforeTheLoad) {
    int reports = 0;
    std::optional<Resource<double>> resource;
    {
        test::FakeContext shortLived;
        shortLived.session = context.session;
        shortLived.log = [&reports](const Error&) { ++reports; };
        resource = Resource<double>::make({.with = PostURI{}}, shortLived);
    }
    ASSERT_TRUE(resource);
    load(*resource);
    context.session->reply(test::answer(500, "x"));
    EXPECT_EQ(reports, 1);
}

TEST_F(ResourceTest, WithoutARequestFromTheContextThereIsNoResource) {
    class NoRequest final : public test::FakeContext {
    public:
        std::optional<URLRequest> generateURLRequest(URLRequestArguments) const override { return {}; }
    };
    const NoRequest none;
    EXPECT_FALSE(Resource<double>::make({.with = PostURI{}}, none));
    EXPECT_EQ(none.services, 0);
    EXPECT_FALSE(Resource<double>::make(
        {.with = PostURI{}, .service = std::shared_ptr<Serviceable>(), .andDecoder = JSONDecoder()}, none));
    const HrefURI href({.withHref = "x", .andQueryItems = std::vector<URLQueryItem>{}});
    EXPECT_FALSE(Resource<double>::make({.withHrefURI = href}, none));
    EXPECT_FALSE(Resource<double>::make({.withHrefURI = href, .andDecoder = JSONDecoder()}, none));
}

TEST_F(ResourceTest, TheContextBuildsTheRequestFromTheRoutesArguments) {
    class Recording final : public test::FakeContext {
    public:
        std::optional<URLRequest> generateURLRequest(URLRequestArguments arguments) const override {
            EXPECT_EQ(arguments.usingPath.value(), "v2/thing");
            EXPECT_EQ(arguments.queryItems.value(), (std::vector<URLQueryItem>{{"a", "1"}}));
            EXPECT_EQ(arguments.additionalHTTPHeaders.value().size(), 1U)
                << "the context's headers are passed as the additional ones";
            EXPECT_EQ(arguments.httpMethod.value(), "POST");
            EXPECT_EQ(arguments.timeout.value(), 9.0) << "the timeout is always present";
            EXPECT_EQ(arguments.andPostData.value(), Data("{}"));
            ++calls;
            return FakeContext::generateURLRequest(std::move(arguments));
        }
        mutable int calls = 0;
    };
    Recording recording;
    recording.headers = {{"X-Key", "k"}};
    recording.timeout = 9;
    EXPECT_TRUE(Resource<double>::make({.with = PostURI{}}, recording));
    EXPECT_EQ(recording.calls, 1);
    EXPECT_EQ(recording.services, 1);
}

/// Records the order in which its members are read.
class RecordingContext final : public virtual Context {
public:
    URL baseURL() const override { return note("baseURL", test::url("https://api.example.test")); }
    std::map<std::string, std::string> HTTPHeaderFields() const override {
        return note("HTTPHeaderFields", std::map<std::string, std::string>{});
    }
    double requestTimeout() const override { return note("requestTimeout", 30.0); }
    LogError logError() const override { return note("logError", LogError()); }
    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
        read.emplace_back("service");
        return Context::service(std::move(arguments));
    }
    std::optional<URLRequest> generateURLRequest(URLRequestArguments arguments) const override {
        read.emplace_back("generateURLRequest");
        return Context::generateURLRequest(std::move(arguments));
    }
    mutable std::vector<std::string> read;

private:
    template <class T>
    T note(const char* name, T value) const {
        read.emplace_back(name);
        return value;
    }
};

TEST_F(ResourceTest, TheContextIsReadInAFixedOrder) {
    const RecordingContext noting;
    EXPECT_TRUE(Resource<double>::make({.with = PostURI{}}, noting));
    EXPECT_EQ(noting.read,
              (std::vector<std::string>{"HTTPHeaderFields", "requestTimeout", "generateURLRequest", "baseURL",
                                        "HTTPHeaderFields", "service", "logError"}));
}

TEST_F(ResourceTest, TheTimeoutIsReadLastIfNoneIsGiven) {
    const RecordingContext noting;
    EXPECT_TRUE(noting.generateURLRequest({.usingPath = "x",
                                           .queryItems = std::vector<URLQueryItem>{},
                                           .additionalHTTPHeaders = std::map<std::string, std::string>{},
                                           .httpMethod = std::nullopt,
                                           .timeout = std::nullopt,
                                           .andPostData = std::nullopt}));
    EXPECT_EQ(noting.read, (std::vector<std::string>{"generateURLRequest", "baseURL", "HTTPHeaderFields",
                                                     "requestTimeout"}));
}

TEST_F(ResourceTest, TheDecoderCanBeSetAndRead) {
    const JSONDecoder decoder;
    const auto resource = Resource<double>::make({.with = PostURI{}, .andDecoder = decoder}, context);
    ASSERT_TRUE(resource);
    static_assert(std::is_same_v<decltype(resource->decoder()), const JSONDecoder&>);
    EXPECT_EQ(&resource->decoder(), &resource->decoder());
    EXPECT_EQ(*resource->decoder().decode<double>(Data("2")), 2.0);
    load(*resource);
    context.session->reply(test::answer(200, "1.5"));
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(*outcomes[0], 1.5);
    EXPECT_EQ(makeResource().decoder().decode<double>(Data("3")).value(), 3.0)
        << "there is a default decoder";
}

TEST_F(ResourceTest, AskingForAPublisherRaisesTheActivityCounter) {
    test::zeroActivityCounter();
    const Resource<double> resource = makeResource();
    EXPECT_EQ(test::activityCounter(), 0);
    const auto publisher = resource.resourceLoader();
    EXPECT_EQ(test::activityCounter(), 1);
    const auto optionalPublisher = resource.optionalResourceLoader();
    EXPECT_EQ(test::activityCounter(), 2);
    EXPECT_TRUE(context.session->requests().empty());
    test::zeroActivityCounter();
}

TEST_F(ResourceTest, AnHrefCanBeUsedAsARoute) {
    const HrefURI href({.withHref = "v2/video/1", .andQueryItems = {{"q", "x"}}});
    const auto plain = Resource<double>::make({.withHrefURI = href}, context);
    const auto decoded = Resource<double>::make({.withHrefURI = href, .andDecoder = JSONDecoder()}, context);
    ASSERT_TRUE(plain && decoded);
    load(*plain);
    context.session->reply(test::answer(200, "1"));
    load(*decoded);
    context.session->reply(test::answer(200, "2"));
    const std::vector<URLRequest> requests = context.session->requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].url()->absoluteString(), "https://api.example.test/v2/video/1?q=x");
    EXPECT_EQ(requests[1], requests[0]);
    EXPECT_EQ(requests[0].httpMethod(), "GET");
}

/// Counts the fetches and never answers.
class CountingService final : public Serviceable {
public:
    void fetch(FetchArguments) override { fetches.signal(); }
    AnyPublisher<Data> fetch() override {
        fetches.signal();
        return AnyPublisher<Data>::fail(NSError("counted", 0));
    }
    const test::Event fetches;
};

TEST_F(ResourceTest, WithARouteTheGivenServiceAndTheContextsServiceAreIgnored) {
    // Port 1 of this machine: no server listens there, and nothing leaves the machine.
    context.base = test::url("http://127.0.0.1:1");
    int reports = 0;
    context.log = [&reports](const Error&) { ++reports; };
    const auto service = std::make_shared<CountingService>();
    const auto resource =
        Resource<double>::make({.with = PostURI{}, .service = service, .andDecoder = JSONDecoder()}, context);
    ASSERT_TRUE(resource);
    const test::Event completed;
    resource->load({.with = [this, completed](Outcome outcome) {
        outcomes.push_back(std::move(outcome));
        completed.signal();
    }});
    ASSERT_TRUE(completed.wait());
    ASSERT_FALSE(outcomes[0]);
    ASSERT_TRUE(outcomes[0].error().underlyingError());
    EXPECT_EQ(outcomes[0].error().underlyingError()->code(), -1004);
    EXPECT_EQ(service->fetches.count(), 0);
    EXPECT_EQ(context.services, 0);
    EXPECT_EQ(context.session->requests().size(), 0U);
    EXPECT_EQ(reports, 0) << "no hook is attached";
}

TEST_F(ResourceTest, AServiceGivenWithoutARouteIsUsed) {
    const auto service = std::make_shared<CountingService>();
    const Resource<double> resource({.withService = service, .andDecoder = JSONDecoder()});
    load(resource);
    EXPECT_TRUE(service->fetches.wait());
    EXPECT_TRUE(resource.isBusy());
}

TEST_F(ResourceTest, AURLOrARequestWithoutAContextUsesTheSharedSession) {
    const test::Event completed;
    const auto failing = [this, completed](Outcome outcome) {
        outcomes.push_back(std::move(outcome));
        completed.signal();
    };
    const Resource<double> ofURL({.withURL = test::url("http://127.0.0.1:1/a"), .andDecoder = JSONDecoder()});
    ofURL.load({.with = failing});
    ASSERT_TRUE(completed.wait(1));
    const Resource<double> ofRequest(
        {.withURLRequest = URLRequest(test::url("http://127.0.0.1:1/b")), .andDecoder = JSONDecoder()});
    ofRequest.load({.with = failing});
    ASSERT_TRUE(completed.wait(2));
    for (const Outcome& outcome : outcomes) {
        ASSERT_FALSE(outcome);
        EXPECT_EQ(outcome.error().underlyingError()->as<NetworkError>()->kind(),
                  NetworkError::Kind::requestFailed);
    }
}

TEST_F(ResourceTest, ASecondLoadDuringTheFirstIsDropped) {
    const Resource<double> resource = makeResource();
    int seconds = 0;
    load(resource);
    resource.load({.with = [&seconds](Outcome) { ++seconds; }});
    context.session->reply(test::answer(200, "1"));
    EXPECT_EQ(outcomes.size(), 1U);
    load(resource);
    context.session->reply(test::answer(200, "2"));
    EXPECT_EQ(outcomes.size(), 2U);
    EXPECT_EQ(seconds, 0);
    EXPECT_EQ(context.session->requests().size(), 2U);
}

TEST_F(ResourceTest, CopiesShareOneBusyState) {
    const Resource<double> first = makeResource();
    const Resource<double> copy = first;
    int dropped = 0;
    load(first);
    EXPECT_TRUE(copy.isBusy());
    copy.load({.with = [&dropped](Outcome) { ++dropped; }});
    context.session->reply(test::answer(200, "1"));
    EXPECT_FALSE(copy.isBusy());
    EXPECT_EQ(context.session->requests().size(), 1U);
    EXPECT_EQ(dropped, 0);
}

TEST_F(ResourceTest, TheResourceIsIdleInItsCompletionAndCanLoadAgain) {
    for (const std::int64_t status : {200, 500}) {
        const Resource<double> resource = makeResource();
        bool busyInside = true;
        const test::Event again;
        resource.load({.with = [&, again](Outcome) {
            busyInside = resource.isBusy();
            resource.load({.with = [again](Outcome) { again.signal(); }});
        }});
        context.session->reply(test::answer(status, "1"));
        EXPECT_FALSE(busyInside);
        context.session->reply(test::answer(status, "1"));
        EXPECT_TRUE(again.wait());
    }
}

TEST_F(ResourceTest, AResourceDestroyedDuringALoadStillCompletes) {
    EXPECT_TRUE(outcomeOf(test::answer(200, "1"))) << "the resource of this load was a temporary";
}

TEST_F(ResourceTest, AServerErrorContainsTheNetworkError) {
    const Outcome outcome = outcomeOf(test::answer(500, "x"));
    ASSERT_FALSE(outcome);
    const LoaderError& error = outcome.error();
    EXPECT_EQ(error.kind(), LoaderError::Kind::serverError);
    EXPECT_FALSE(error.is404Error());
    EXPECT_EQ(
        error.localizedDescription(),
        "The operation couldn\u2019t be completed. (dev.vantic.VanticRestKit.networkService error 500.)");
    ASSERT_NE(error.underlyingError()->as<NetworkError>(), nullptr);
    EXPECT_EQ(error.underlyingError()->as<NetworkError>()->localizedDescription(), "Got response 500");
    EXPECT_EQ(error.underlyingError()->as<NetworkError>()->data(), Data("x"));
}

TEST_F(ResourceTest, A404IsRecognised) {
    const Outcome outcome = outcomeOf(test::answer(404, "x"));
    ASSERT_FALSE(outcome);
    EXPECT_TRUE(outcome.error().is404Error());
}

TEST_F(ResourceTest, ABodyThatIsNotJSONFailsToDecode) {
    const Outcome outcome = outcomeOf(test::answer(200, "{"));
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().kind(), LoaderError::Kind::failedToDecode);
    EXPECT_EQ(outcome.error().localizedDescription(), "Unable to decode the server response");
    EXPECT_FALSE(outcome.error().is404Error());
    EXPECT_TRUE(outcome.error().underlyingError());
}

TEST_F(ResourceTest, AnEmptyBodyIsReceivedButFailsToDecode) {
    const Outcome outcome = outcomeOf(test::answer(204, ""));
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().kind(), LoaderError::Kind::failedToDecode);
}

TEST_F(ResourceTest, CancellingAnIdleResourceDoesNothing) {
    const Resource<double> resource = makeResource();
    resource.cancel();
    load(resource);
    context.session->reply(test::answer(200, "1"));
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_TRUE(outcomes[0]);
}

TEST_F(ResourceTest, ALoadCancelledBeforeItsStartReleasesItsCompletion) {
    auto token = std::make_shared<int>();
    const std::weak_ptr<int> held = token;
    const Resource<double> resource = makeResource();
    {
        const detail::PoolPause pause;
        resource.load({.with = [token](Outcome) {}});
        token.reset();
        resource.cancel();
        EXPECT_TRUE(held.expired());
    }
    EXPECT_TRUE(resource.isBusy());
    load(resource);
    EXPECT_TRUE(outcomes.empty());
}

TEST_F(ResourceTest, ThePublisherDeliversTheValue) {
    std::vector<double> values;
    std::vector<Result<void, Error>> ends;
    const Resource<double> resource = makeResource();
    const Cancellable subscription =
        resource.resourceLoader().sink([&](double value) { values.push_back(value); },
                                       [&](Result<void, Error> end) { ends.push_back(std::move(end)); });
    EXPECT_FALSE(resource.isBusy());
    context.session->reply(test::answer(200, "1.5"));
    EXPECT_EQ(values, std::vector<double>{1.5});
    ASSERT_EQ(ends.size(), 1U);
    EXPECT_TRUE(ends[0]);
}

TEST_F(ResourceTest, FailuresOfThePublisherAreNotWrapped) {
    std::vector<Error> errors;
    const Resource<double> resource = makeResource();
    const auto failed = [&errors](Result<void, Error> end) {
        if (!end) errors.push_back(end.error());
    };
    const Cancellable first = resource.resourceLoader().sink({}, failed);
    context.session->reply(test::answer(500, "x"));
    const Cancellable second = resource.resourceLoader().sink({}, failed);
    context.session->reply(test::answer(200, "{"));
    const Cancellable third = resource.resourceLoader().sink({}, failed);
    context.session->reply(test::transportFailure(NSError("NSURLErrorDomain", -1001)));
    ASSERT_EQ(errors.size(), 3U);
    EXPECT_NE(errors[0].as<NetworkError>(), nullptr);
    EXPECT_NE(errors[1].as<DecodingError>(), nullptr);
    EXPECT_EQ(errors[2].domain(), "NSURLErrorDomain");
}

TEST_F(ResourceTest, PublishersRunDuringALoad) {
    const Resource<double> resource = makeResource();
    load(resource);
    ASSERT_TRUE(context.session->started.wait());
    int values = 0;
    const AnyPublisher<double> publisher = resource.resourceLoader();
    const Cancellable one = publisher.sink([&values](double) { ++values; });
    const Cancellable other = publisher.sink([&values](double) { ++values; });
    resource.cancel();
    for (int answers = 0; answers < 3; ++answers) context.session->reply(test::answer(200, "1"));
    EXPECT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(values, 2);
    EXPECT_EQ(context.session->requests().size(), 3U);
}

TEST_F(ResourceTest, TheOptionalPublisherDeliversOneEmptyValueForEveryFailure) {
    const std::vector<test::Reply> failures{test::answer(500, "x"), test::answer(200, "{"),
                                            test::answer(200, "null"),
                                            test::transportFailure(NSError("NSURLErrorDomain", -1001))};
    const Resource<double> resource = makeResource();
    for (const test::Reply& failure : failures) {
        std::vector<std::optional<double>> values;
        int ends = 0;
        const Cancellable subscription = resource.optionalResourceLoader().sink(
            [&values](std::optional<double> value) { values.push_back(value); },
            [&ends](const Result<void, Never>& end) { ends += end ? 1 : 0; });
        context.session->reply(failure);
        EXPECT_EQ(values, std::vector<std::optional<double>>{std::nullopt});
        EXPECT_EQ(ends, 1);
    }
}

TEST_F(ResourceTest, TheOptionalPublisherDeliversAnEmptyValueForNullEvenOfATypeOnlyDecodingConstructs) {
    const auto resource = Resource<Answer>::make({.with = PostURI{}}, context);
    ASSERT_TRUE(resource);
    std::vector<bool> values;
    const Cancellable subscription = resource->optionalResourceLoader().sink(
        [&values](const std::optional<Answer>& value) { values.push_back(value.has_value()); });
    context.session->reply(test::answer(200, "null"));
    EXPECT_EQ(values, std::vector<bool>{false});
}

TEST_F(ResourceTest, TheOptionalPublisherDeliversAPresentValue) {
    std::vector<std::optional<double>> values;
    const Cancellable subscription = makeResource().optionalResourceLoader().sink(
        [&values](std::optional<double> value) { values.push_back(value); });
    context.session->reply(test::answer(200, "2"));
    EXPECT_EQ(values, std::vector<std::optional<double>>{2.0});
}

}  // namespace
}  // namespace VanticRestKit
