// One fault has one category in every form of a load, over real sockets.

#include <VanticRestKit/Core/ErrorAdvice.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <chrono>
#include <map>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using namespace std::chrono_literals;

namespace {

Resource<double> resourceOf(URLRequest request) {
    const auto session = networkSession(URLSession::make(URLSessionConfiguration::default_()));
    const auto service =
        NetworkServiceble::make({.with = std::move(request), .and_ = session, .logError = nullptr});
    return Resource<double>({.withService = service, .andDecoder = JSONDecoder()});
}

/// The advice on the fault from each form of a load, by the name of the form.
std::map<std::string, ErrorAdvice> adviceOfEachForm(const Resource<double>& resource) {
    std::map<std::string, ErrorAdvice> advice;
    const Event ended;
    resource.load({.with = [&, ended](Result<double, LoaderError> result) {
        if (!result) advice["load"] = adviceOn(result.error());
        ended.signal();
    }});
    EXPECT_TRUE(ended.wait(1));
    const Cancellable subscription =
        resource.resourceLoader().sink({}, [&, ended](const Result<void, Error>& end) {
            if (!end) advice["publisher"] = adviceOn(end.error());
            ended.signal();
        });
    EXPECT_TRUE(ended.wait(2));
    const Cancellable handle = resource.start({}, [&, ended](Result<double, LoaderError> result) {
        if (!result) advice["start"] = adviceOn(result.error());
        ended.signal();
    });
    EXPECT_TRUE(ended.wait(3));
    const Result<double, LoaderError> waited = resource.wait();
    if (!waited) advice["wait"] = adviceOn(waited.error());
    return advice;
}

void expectInEachForm(const Resource<double>& resource, ErrorCategory category) {
    const auto advice = adviceOfEachForm(resource);
    EXPECT_EQ(advice.size(), 4u) << "a form did not fail";
    for (const auto& [form, each] : advice) {
        EXPECT_STREQ(nameOf(each.category), nameOf(category)) << form;
        EXPECT_EQ(each.retryAfter, advice.at("load").retryAfter) << form;
        EXPECT_EQ(each.sentence, sentenceOf(category)) << form;
    }
}

void expectForResponse(const std::string& reply, ErrorCategory category) {
    SCOPED_TRACE(reply);
    FaultServer server(always(reply));
    expectInEachForm(resourceOf(requestOf(server.url())), category);
}

}  // namespace

TEST(Advice, AStatusHasOneCategoryInEveryForm) {
    expectForResponse(answer(401, "{}"), ErrorCategory::unauthorized);
    expectForResponse(answer(403, "{}"), ErrorCategory::forbidden);
    expectForResponse(answer(404, "{}"), ErrorCategory::notFound);
    expectForResponse(answer(429, "{}", "Retry-After: 3\r\n"), ErrorCategory::tooManyRequests);
    expectForResponse(answer(500, "{}"), ErrorCategory::serverFailed);
}

TEST(Advice, ARetryAfterIsReadInEveryForm) {
    FaultServer server(always(answer(503, "{}", "Retry-After: 120\r\n")));
    const auto advice = adviceOfEachForm(resourceOf(requestOf(server.url())));
    ASSERT_EQ(advice.size(), 4u);
    for (const auto& [form, each] : advice) {
        EXPECT_EQ(each.retryAfter, std::chrono::duration<double>(120)) << form;
    }
}

TEST(Advice, AResponseThatDoesNotDecodeHasOneCategoryInEveryForm) {
    expectForResponse(answer(200, "<html>"), ErrorCategory::badAnswer);
    expectForResponse(answer(200, "\"text\""), ErrorCategory::badAnswer);
    expectForResponse("Hello\r\n\r\n", ErrorCategory::badAnswer);
}

TEST(Advice, ALostConnectionHasOneCategoryInEveryForm) {
    FaultServer server([](FaultConnection& connection) {
        if (connection.readRequest()) connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n");
    });
    expectInEachForm(resourceOf(requestOf(server.url())), ErrorCategory::offline);
    const std::string closed = "http://127.0.0.1:" + std::to_string(unusedPort()) + "/";
    expectInEachForm(resourceOf(requestOf(closed)), ErrorCategory::offline);
}

TEST(Advice, ATimeoutHasOneCategoryInEveryForm) {
    FaultServer server([](FaultConnection& connection) {
        if (connection.readRequest()) connection.stall();
    });
    URLRequest request = requestOf(server.url());
    request.setTimeoutInterval(100ms);
    expectInEachForm(resourceOf(std::move(request)), ErrorCategory::timedOut);
}

TEST(Advice, AnUntrustedCertificateHasOneCategoryInEveryForm) {
    const Identity identity = selfSigned();
    FaultServer server(always(answer(200, "1")), &identity);
    expectInEachForm(resourceOf(requestOf(server.url())), ErrorCategory::insecure);
}

TEST(Advice, ARequestThatCannotBeSentHasOneCategoryInEveryForm) {
    URLRequest request = requestOf("http://127.0.0.1:1/");
    request.setURL(URL::make("ftp://127.0.0.1/"));
    expectInEachForm(resourceOf(std::move(request)), ErrorCategory::wrongUse);
}

TEST(Advice, ACancelAndADeadlineAreDistinguished) {
    FaultServer server([](FaultConnection& connection) {
        if (connection.readRequest()) connection.stall();
    });
    const auto resource = resourceOf(requestOf(server.url()));
    EXPECT_EQ(categoryOf(resource.wait({.deadline = 50ms}).error()), ErrorCategory::timedOut);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(categoryOf(resource.wait({.stop = stop.get_token()}).error()), ErrorCategory::cancelled);
}
