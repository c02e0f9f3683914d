// Every form of a load with an observer, over real sockets.

#include <VanticRestKit/Core/HrefURI.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/async/Task.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <Core/RecordingObserver.h>
#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using namespace std::chrono_literals;

namespace {

class SocketContext : public virtual Context {
public:
    URL baseURL() const override { return URL::make(base).value(); }
    std::map<std::string, std::string> HTTPHeaderFields() const override {
        return {{"Authorization", "Bearer s3cret"}};
    }
    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
        return NetworkServiceble::make({.with = std::move(arguments.withURLRequest),
                                        .and_ = networkSession(session),
                                        .logError = logError()});
    }

    std::string base{};
    std::shared_ptr<URLSession> session = URLSession::make(URLSessionConfiguration::default_());
};

/// A context for `server`, and a resource of the path "/p" with a secret in its query.
struct Host {
    explicit Host(const FaultServer& server) { context.base = server.url(""); }

    Resource<double> resource() const {
        return Resource<double>::make(
                   {.withHrefURI = HrefURI({.withHref = "p", .andQueryItems = {{"apikey", "s3cret"}}})},
                   context)
            .value();
    }
    std::vector<RequestMetrics> requests() const { return context.recorder->requests(); }

    test::Observed<SocketContext> context;
};

Task<double> awaited(Resource<double> resource) { co_return (co_await resource.value()).value_or(0); }

void stall(FaultConnection& connection) {
    if (!connection.readRequest()) return;
    connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n1");
    connection.stall();
}

}  // namespace

TEST(ObservedForms, EachFormHasTheRecordOfItsRequest) {
    FaultServer server(always(answer(200, "17")));
    const Host host(server);
    const Resource<double> resource = host.resource();
    const Event ended;
    const auto noted = [ended, &host](const auto&) {
        EXPECT_TRUE(host.context.session->delegateQueue().isCurrent());
        ended.signal();
    };
    const auto completed = [noted](const Result<void, Error>& end) { noted(end); };

    resource.load({.with = noted});
    ASSERT_TRUE(ended.wait(1));
    const Cancellable handle = resource.start({}, noted);
    ASSERT_TRUE(ended.wait(2));
    const Cancellable one = resource.resourceLoader().sink([](double) {}, completed);
    ASSERT_TRUE(ended.wait(3));
    const Cancellable other =
        resource.optionalResourceLoader().sink([noted](const std::optional<double>& value) { noted(value); });
    ASSERT_TRUE(ended.wait(4));
    EXPECT_EQ(*resource.future().get(), 17);
    EXPECT_EQ(*resource.wait(), 17);
    EXPECT_EQ(blockOn(awaited(resource)), 17);

    const auto requests = host.requests();
    ASSERT_EQ(requests.size(), 7U);
    EXPECT_TRUE(requests[0].isNewConnection);
    for (const RequestMetrics& request : requests) {
        EXPECT_EQ(request.url, server.url("/p?apikey=redacted"));
        EXPECT_EQ(request.status, 200);
        EXPECT_EQ(request.protocol, "http/1.1");
        EXPECT_EQ(request.bodyBytesReceived, 2);
        EXPECT_TRUE(request.firstByte);
    }
    EXPECT_EQ(server.requests().back().header("authorization"), "Bearer s3cret");
}

TEST(ObservedForms, ARecordComesBeforeTheCompletion) {
    FaultServer server(always(answer(503, "busy")));
    const Host host(server);
    const Event ended;
    host.resource().load({.with = [&host, ended](const Result<double, LoaderError>& value) {
        EXPECT_FALSE(value);
        EXPECT_EQ(host.requests().size(), 1U);
        ended.signal();
    }});
    ASSERT_TRUE(ended.wait());
    EXPECT_EQ(host.requests()[0].status, 503);
}

TEST(ObservedForms, ACancelledLoadAndALateOneHaveARecord) {
    FaultServer server(stall);
    const Host host(server);
    {
        const Cancellable handle = host.resource().start({}, [](const auto&) {});
        ASSERT_TRUE(server.waitForRequests(1));
    }
    ASSERT_TRUE(host.context.recorder->requestsChanged.wait(1));
    EXPECT_FALSE(host.resource().wait({.deadline = 50ms}));
    ASSERT_TRUE(host.context.recorder->requestsChanged.wait(2));
    {
        const Cancellable subscription = host.resource().resourceLoader().sink([](double) {});
        ASSERT_TRUE(server.waitForRequests(3));
    }
    ASSERT_TRUE(host.context.recorder->requestsChanged.wait(3));
    for (const RequestMetrics& request : host.requests()) {
        ASSERT_TRUE(request.error);
        EXPECT_EQ(request.error->code(), static_cast<std::int64_t>(URLErrorCode::cancelled));
        EXPECT_EQ(request.error->userInfo().size(), 1U) << "no address";
    }
}

TEST(ObservedForms, ARedirectToAURLWithASecretIsRedacted) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            const bool isFirst = request->target.starts_with("/p");
            connection.send(isFirst ? answer(302, "", "Location: /signed?token=s3cret#s3cret\r\n")
                                    : answer(200, "17"));
        }
    });
    const Host host(server);
    EXPECT_TRUE(host.resource().wait());
    ASSERT_EQ(host.requests().size(), 2U);
    EXPECT_EQ(host.requests()[1].url.find("s3cret"), std::string::npos) << host.requests()[1].url;
    EXPECT_EQ(host.requests()[1].redirects, 1);
}

TEST(ObservedForms, ASignInPageIsADecodingFailure) {
    FaultServer server(always(answer(200, "<html>Sign in</html>")));
    const Host host(server);
    EXPECT_FALSE(host.resource().wait());
    const auto failures = host.context.recorder->failures();
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_EQ(failures[0].url, server.url("/p?apikey=redacted"));
    EXPECT_EQ(failures[0].typeName, "Double");
    EXPECT_EQ(host.requests().size(), 1U);
    EXPECT_FALSE(host.requests()[0].error) << "the request itself succeeded";
}

TEST(ObservedForms, ALoadQueuedForItsOriginIsReported) {
    std::unique_ptr<FaultServer> server;
    server = std::make_unique<FaultServer>([&server](FaultConnection& connection) {
        while (connection.readRequest()) {
            if (!server->hold()) return;
            connection.send(answer(200, "17"));
        }
    });
    Host host(*server);
    URLSessionConfiguration configuration;
    configuration.httpMaximumConnectionsPerHost = 1;
    host.context.session = URLSession::make(configuration);
    const Event ended;
    const auto note = [ended](const auto&) { ended.signal(); };
    host.resource().load({.with = note});
    ASSERT_TRUE(server->waitForRequests(1));
    host.resource().load({.with = note});
    ASSERT_TRUE(host.context.recorder->changesChanged.wait(1));
    const Cancellable started = host.resource().start({}, note);
    ASSERT_TRUE(host.context.recorder->changesChanged.wait(2));
    server->releaseHeld();
    ASSERT_TRUE(ended.wait(3));

    const auto changes = host.context.recorder->changes();
    ASSERT_EQ(changes.size(), 4U) << "one of the three did not wait";
    EXPECT_EQ(changes[0].url, server->url("/p?apikey=redacted"));
    EXPECT_EQ(changes[0].progress.state, LoadProgress::State::queued);
    EXPECT_EQ(changes[0].progress.queueLength, 1);
    EXPECT_EQ(changes[1].progress.queueLength, 2);
    EXPECT_EQ(changes[2].progress.state, LoadProgress::State::loading);
    EXPECT_EQ(changes[3].progress.state, LoadProgress::State::loading);
    const auto requests = host.requests();
    ASSERT_EQ(requests.size(), 3U);
    for (std::size_t i = 0; i < requests.size(); ++i) {
        EXPECT_EQ(requests[i].queueLength, static_cast<std::int64_t>(i));
    }
}
