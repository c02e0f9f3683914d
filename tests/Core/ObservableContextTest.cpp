#include <VanticRestKit/Core/ObservableContext.h>

#include <Core/FakeContext.h>
#include <Core/RecordingObserver.h>
#include <gtest/gtest.h>
#include <VanticRestKit/Core/detail/LoadObservation.h>
#include <VanticRestKit/Core/detail/ObservedService.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/Core/URLBuilder.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {
namespace {

using test::answer;
using test::Event;
using test::FakeContext;
using test::Observed;
using test::RecordingObserver;

using Context_ = Observed<FakeContext>;
constexpr const char* query = "?apikey=s3cret";

template <class T>
Resource<T> resourceOf(const Context& context) {
    return Resource<T>::make(
               {.withHrefURI = HrefURI({.withHref = "v2/time", .andQueryItems = {{"apikey", "s3cret"}}})},
               context)
        .value();
}

/// A host's own service, which answers at once.
class OwnService final : public Serviceable {
public:
    explicit OwnService(Result<Data, Error> body) : body_(std::move(body)) {}
    void fetch(FetchArguments arguments) override { std::move(arguments.with).value()(body_); }

private:
    Result<Data, Error> body_;
};

class OwnServiceContext : public FakeContext {
public:
    std::shared_ptr<Serviceable> service(ServiceArguments) const override {
        return std::make_shared<OwnService>(body);
    }
    Result<Data, Error> body = Data("5");
};

TEST(ObservableContext, AContextIsNotObservedByDefault) {
    const FakeContext plain;
    EXPECT_EQ(plain.asObservable(), nullptr);
    const Context_ observed;
    EXPECT_EQ(observed.asObservable(), &observed);
}

TEST(ObservableContext, WithoutAnObserverAResourceUsesItsServiceDirectly) {
    const FakeContext plain;
    EXPECT_EQ(detail::serviceFor(URLRequest(plain.base), plain)->observation(), nullptr);
    Context_ silent;
    silent.recorder = nullptr;
    EXPECT_EQ(detail::serviceFor(URLRequest(silent.base), silent)->observation(), nullptr);
    const Context_ observed;
    EXPECT_NE(detail::serviceFor(URLRequest(observed.base), observed)->observation(), nullptr);
}

TEST(ObservableContext, ASessionWithoutMetricsIsObservedByItsResponses) {
    const Context_ context;
    const Event ended;
    resourceOf<double>(context).load({.with = [&context, ended](const Result<double, LoaderError>& value) {
        EXPECT_EQ(*value, 5);
        EXPECT_EQ(context.recorder->requests().size(), 1U) << "the observer comes before the completion";
        ended.signal();
    }});
    context.session->reply(answer(200, "5"));
    ASSERT_TRUE(ended.wait());
    const auto requests = context.recorder->requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].method, "GET");
    EXPECT_EQ(requests[0].url, "https://api.example.test/v2/time?apikey=redacted");
    EXPECT_EQ(requests[0].bodyBytesDecoded, 1);
    EXPECT_FALSE(requests[0].error);
}

TEST(ObservableContext, TheStatusOfAFailedRequestIsReported) {
    const Context_ context;
    const Event ended;
    resourceOf<double>(context).load({.with = [ended](const auto&) { ended.signal(); }});
    context.session->reply(answer(503, "busy"));
    ASSERT_TRUE(ended.wait());
    ASSERT_EQ(context.recorder->requests().size(), 1U);
    EXPECT_EQ(context.recorder->requests()[0].status, 503);
    EXPECT_FALSE(context.recorder->requests()[0].error);
}

TEST(ObservableContext, ATransportErrorIsReportedWithoutItsDetails) {
    const Context_ context;
    const Event ended;
    resourceOf<double>(context).load({.with = [ended](const auto&) { ended.signal(); }});
    context.session->reply(test::transportFailure(
        NSError(std::string(NSURLErrorDomain), -1001, {{"NSLocalizedDescription", "s3cret"}})));
    ASSERT_TRUE(ended.wait());
    ASSERT_EQ(context.recorder->requests().size(), 1U);
    const auto error = context.recorder->requests()[0].error;
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), -1001);
    EXPECT_EQ(error->localizedDescription(), "The request timed out.");
}

TEST(ObservableContext, AnObserverCanAskForUnredactedURLsAndErrors) {
    Context_ context;
    context.recorder = std::make_shared<RecordingObserver>(ObserverOptions{.revealsAddresses = true});
    const Event ended;
    resourceOf<double>(context).load({.with = [ended](const auto&) { ended.signal(); }});
    context.session->reply(test::transportFailure(NSError("D", 7, {{"NSLocalizedDescription", "whole"}})));
    ASSERT_TRUE(ended.wait());
    ASSERT_EQ(context.recorder->requests().size(), 1U);
    EXPECT_EQ(context.recorder->requests()[0].url, std::string("https://api.example.test/v2/time") + query);
    EXPECT_EQ(context.recorder->requests()[0].error->localizedDescription(), "whole");
}

TEST(ObservableContext, EachSubscriptionOfAPublisherIsObserved) {
    const Context_ context;
    const auto publisher = resourceOf<double>(context).resourceLoader();
    for (int i = 1; i <= 2; ++i) {
        const Event ended;
        const Cancellable subscription =
            publisher.sink([](double) {}, [ended](const Result<void, Error>&) { ended.signal(); });
        context.session->reply(i == 1 ? answer(200, "5") : answer(500, "no"));
        ASSERT_TRUE(ended.wait());
    }
    const auto requests = context.recorder->requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[1].status, 500);
    EXPECT_TRUE(context.recorder->failures().empty());
}

TEST(ObservableContext, ASubscriberThatCancelsDuringAValueGetsNothingMore) {
    const Context_ context;
    const auto held = std::make_shared<int>(0);
    Cancellable subscription;
    int completions = 0;
    subscription = resourceOf<double>(context).resourceLoader().sink(
        [&subscription, held](double) { subscription = Cancellable(); },
        [&completions, held](const Result<void, Error>&) { ++completions; });
    context.session->reply(answer(200, "5"));
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(context.recorder->requests().size(), 1U);
    EXPECT_EQ(held.use_count(), 1) << "the subscriber was released";
}

TEST(ObservableContext, AHostsOwnServiceIsObservedInEveryForm) {
    const Observed<OwnServiceContext> context;
    const auto resource = resourceOf<double>(context);
    EXPECT_EQ(*resource.wait(), 5);
    EXPECT_EQ(*resource.future().get(), 5);
    const Event ended;
    const Cancellable handle = resource.start({}, [ended](const auto&) { ended.signal(); });
    resource.load({.with = [ended](const auto&) { ended.signal(); }});
    const Cancellable subscription = resource.optionalResourceLoader().sink([](std::optional<double>) {});
    ASSERT_TRUE(ended.wait(2));
    EXPECT_EQ(context.recorder->requests().size(), 5U);
}

TEST(ObservableContext, AnErrorOfAHostsOwnServiceIsReported) {
    Observed<OwnServiceContext> context;
    context.body = Failure(Error(NSError("D", 7)));
    EXPECT_FALSE(resourceOf<double>(context).wait());
    ASSERT_EQ(context.recorder->requests().size(), 1U);
    EXPECT_EQ(context.recorder->requests()[0].error->domain(), "D");
}

/// Reports progress and answers when it is started.
class ProgressingService final : public Serviceable {
public:
    void fetch(FetchArguments arguments) override { static_cast<void>(start(std::move(arguments))); }
    Cancellable start(FetchArguments arguments) override {
        for (const auto state : {LoadProgress::State::queued, LoadProgress::State::loading}) {
            arguments.progress({.state = state});
        }
        if (arguments.metrics) arguments.metrics({.url = "https://h/p?apikey=s3cret", .status = 204});
        std::move(arguments.with).value()(Data("5"));
        return {};
    }
};

TEST(ObservableContext, ProgressAndMetricsReachTheObserverAndTheCaller) {
    const auto recorder = std::make_shared<RecordingObserver>();
    const URLRequest request(test::url("https://h/p?apikey=s3cret"));
    const auto observed = std::make_shared<detail::ObservedService>(
        std::make_shared<ProgressingService>(),
        std::make_shared<const detail::LoadObservation>(recorder, request, 1));
    std::vector<LoadProgress::State> states;
    std::vector<std::string> urls;
    const Cancellable load = observed->start(
        {.with = [](const auto&) {},
         .metrics = [&](const RequestMetrics& record) { urls.push_back(record.url); },
         .progress = [&](const LoadProgress& progress) { states.push_back(progress.state); }});
    EXPECT_EQ(states, (std::vector{LoadProgress::State::queued, LoadProgress::State::loading}));
    ASSERT_EQ(recorder->changes().size(), 2U);
    EXPECT_EQ(recorder->changes()[0].progress.state, LoadProgress::State::queued);
    EXPECT_EQ(recorder->changes()[0].url, "https://h/p?apikey=redacted");
    EXPECT_EQ(urls, std::vector<std::string>{"https://h/p?apikey=s3cret"});
    ASSERT_EQ(recorder->requests().size(), 1U);
    EXPECT_EQ(recorder->requests()[0].url, "https://h/p?apikey=redacted");
}

TEST(ObservableContext, AResponseThatIsNotHTTPIsReportedAsAnError) {
    const Context_ context;
    const Event ended;
    resourceOf<double>(context).load({.with = [ended](const auto&) { ended.signal(); }});
    context.session->reply(
        {.data = Data("5"), .response = std::make_shared<const URLResponse>(URL("https://h/p"))});
    ASSERT_TRUE(ended.wait());
    ASSERT_EQ(context.recorder->requests().size(), 1U);
    const RequestMetrics record = context.recorder->requests()[0];
    EXPECT_FALSE(record.status);
    ASSERT_TRUE(record.error);
    EXPECT_EQ(record.error->domain(), NetworkError::errorDomain());
    EXPECT_EQ(record.error->code(), 3);
}

/// A context that breaks the rule that a service is never null.
class NoServiceContext : public FakeContext {
public:
    std::shared_ptr<Serviceable> service(ServiceArguments) const override { return nullptr; }
};

TEST(ObservableContext, WithoutAServiceThereIsNoResource) {
    const HrefURI route({.withHref = "v2/time", .andQueryItems = std::vector<URLQueryItem>()});
    EXPECT_FALSE(Resource<double>::make({.withHrefURI = route}, NoServiceContext()));
    EXPECT_FALSE(Resource<double>::make({.withHrefURI = route}, Observed<NoServiceContext>()));
}

TEST(ObservableContext, ADecodingErrorOfAnEntityIsReportedWithoutItsDetails) {
    const URLRequest request(test::url("https://h/p"));
    const Error error = NSError("host.tests", 3, {{"NSLocalizedDescription", "found s3cret"}});
    for (const bool includesBodies : {false, true}) {
        const auto recorder =
            std::make_shared<RecordingObserver>(ObserverOptions{.includesBodies = includesBodies});
        detail::LoadObservation(recorder, request, 1).decoded(Data("{}"), &error, "Video", nullptr);
        ASSERT_EQ(recorder->failures().size(), 1U);
        const Error shown = recorder->failures()[0].error;
        EXPECT_EQ(shown.domain(), "host.tests");
        EXPECT_EQ(shown.code(), 3);
        EXPECT_EQ(shown.localizedDescription().find("s3cret") != std::string::npos, includesBodies);
    }
}

TEST(ObservableContext, AnObserverThatOverridesNothingDoesNotAffectALoad) {
    class Indifferent final : public RequestObserver {};
    class Context final : public OwnServiceContext, public ObservableContext {
    public:
        std::shared_ptr<RequestObserver> observer() const override { return std::make_shared<Indifferent>(); }
    };
    Context context;
    EXPECT_EQ(*resourceOf<double>(context).wait(), 5);
    context.body = Data("no number");
    EXPECT_EQ(resourceOf<double>(context).wait().error().kind(), LoaderError::Kind::failedToDecode);
}

TEST(ObservableContext, ADecodingFailureIsReportedInEveryForm) {
    Observed<OwnServiceContext> context;
    context.body = Data("<html>Sign in</html>");
    const auto resource = resourceOf<std::vector<double>>(context);
    EXPECT_FALSE(resource.wait());
    const Event ended;
    resource.load({.with = [ended](const auto&) { ended.signal(); }});
    ASSERT_TRUE(ended.wait());
    const Cancellable one = resource.resourceLoader().sink([](const auto&) {});
    const Cancellable other = resource.optionalResourceLoader().sink([](const auto&) {});
    const auto failures = context.recorder->failures();
    ASSERT_EQ(failures.size(), 4U);
    for (const DecodingFailure& failure : failures) {
        EXPECT_EQ(failure.url, "https://api.example.test/v2/time?apikey=redacted");
        EXPECT_EQ(failure.typeName, "[Double]");
        EXPECT_EQ(failure.bodySize, 20U);
        EXPECT_FALSE(failure.body);
        ASSERT_NE(failure.error.as<DecodingError>(), nullptr);
        EXPECT_EQ(failure.error.as<DecodingError>()->kind(), DecodingError::Kind::dataCorrupted);
    }
}

TEST(ObservableContext, ABodyIsPassedToAnObserverThatAsksForIt) {
    Observed<OwnServiceContext> context;
    context.recorder = std::make_shared<RecordingObserver>(ObserverOptions{.includesBodies = true});
    context.body = Data("<html>Sign in</html>");
    EXPECT_FALSE(resourceOf<double>(context).wait());
    ASSERT_EQ(context.recorder->failures().size(), 1U);
    ASSERT_TRUE(context.recorder->failures()[0].body);
    EXPECT_EQ(context.recorder->failures()[0].body->view(), "<html>Sign in</html>");
    EXPECT_EQ(context.recorder->failures()[0].url, "https://api.example.test/v2/time?apikey=redacted");
}

TEST(ObservableContext, RawDataAndStringsAreNeitherDecodedNorExplained) {
    Observed<OwnServiceContext> context;
    context.recorder = std::make_shared<RecordingObserver>(ObserverOptions{.explainedShare = 1});
    EXPECT_TRUE(resourceOf<Data>(context).wait());
    EXPECT_TRUE(resourceOf<RawText>(context).wait());
    EXPECT_TRUE(resourceOf<double>(context).wait());
    ASSERT_TRUE(context.recorder->documentsChanged.wait());
    EXPECT_EQ(context.recorder->documents().size(), 1U);
    EXPECT_EQ(context.recorder->requests().size(), 3U);
}

TEST(ObservableContext, AResourceKeepsItsObserverAlive) {
    auto context = std::make_unique<Observed<OwnServiceContext>>();
    const std::weak_ptr<RecordingObserver> weak = context->recorder;
    {
        const auto resource = resourceOf<double>(*context);
        context.reset();
        EXPECT_TRUE(resource.wait());
        ASSERT_NE(weak.lock(), nullptr);
        EXPECT_EQ(weak.lock()->requests().size(), 1U);
    }
    EXPECT_EQ(weak.lock(), nullptr);
}

}  // namespace
}  // namespace VanticRestKit
