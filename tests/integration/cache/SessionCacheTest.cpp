// The cache of a session over real sockets, with a clock advanced by the tests.

#include "SessionCache.h"

#include <VanticRestKit/platform/http/cache/URLCache.h>

#include <atomic>

namespace VanticRestKit::test {

namespace {

TEST_F(SessionCache, AnswersTheSecondLoadAndReportsThat) {
    FaultServer server(always(answer(200, "body", fresh)));
    const Loaded first = load(*session, server.url());
    EXPECT_EQ(sourceOf(first), Source::network);
    EXPECT_EQ(statusOf(first), "VanticRestKit; fwd=uri-miss; fwd-status=200; stored");
    clock.move(std::chrono::seconds(5));
    const Loaded second = load(*session, server.url());
    EXPECT_EQ(second.body(), "body");
    EXPECT_EQ(second.header("Age"), "5");
    EXPECT_EQ(sourceOf(second), Source::cache);
    EXPECT_EQ(statusOf(second), "VanticRestKit; hit; ttl=55");
    EXPECT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(cache->hits(), 1U);
    EXPECT_EQ(cache->misses(), 1U);
}

TEST_F(SessionCache, DeliversOnTheDelegateQueueNotInsideTheCall) {
    FaultServer server(always(answer(200, "body", fresh)));
    load(*session, server.url());
    std::atomic<bool> isInside = true;
    std::atomic<bool> wasInside = false;
    std::atomic<bool> wasOnQueue = false;
    Loaded loaded;
    session
        ->dataTask(requestOf(server.url()),
                   [&, completion = loaded.completion()](auto data, auto response, auto error) mutable {
                       wasInside = isInside.load() && !session->delegateQueue().isCurrent();
                       wasOnQueue = session->delegateQueue().isCurrent();
                       completion(std::move(data), std::move(response), std::move(error));
                   })
        ->resume();
    isInside = false;
    EXPECT_TRUE(loaded.succeeded());
    EXPECT_FALSE(wasInside);
    EXPECT_TRUE(wasOnQueue);
}

TEST_F(SessionCache, RevalidatesAStaleResponse) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            connection.send(request->header("if-none-match") == "\"a\""
                                ? "HTTP/1.1 304 Not Modified\r\nETag: \"a\"\r\nX-New: 1\r\n\r\n"
                                : answer(200, "body", fresh));
        }
    });
    load(*session, server.url());
    clock.move(std::chrono::seconds(61));
    const Loaded second = load(*session, server.url());
    EXPECT_EQ(second.status(), 200);
    EXPECT_EQ(second.body(), "body");
    EXPECT_EQ(second.header("X-New"), "1");
    EXPECT_EQ(sourceOf(second), Source::revalidated);
    EXPECT_EQ(statusOf(second), "VanticRestKit; fwd=stale; fwd-status=304; stored");
    EXPECT_EQ(sourceOf(load(*session, server.url())), Source::cache);
}

TEST_F(SessionCache, SendsTheSameBytesAsWithoutACacheIfNothingIsStored) {
    FaultServer server(always(answer(200, "body")));
    load(*session, server.url());
    load(*session, server.url());
    load(*makeSession(nullptr), server.url());
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 3U);
    EXPECT_EQ(requests[0].headers, requests[1].headers);
    EXPECT_EQ(requests[0].headers, requests[2].headers);
}

TEST_F(SessionCache, KeepsTheResponsesOfUsersSeparate) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            connection.send(answer(200, request->header("authorization") + request->header("cookie"), fresh));
        }
    });
    const auto as = [&](const char* name, const char* value) {
        URLRequest request = requestOf(server.url());
        request.setValue(value, name);
        return load(*session, request).body();
    };
    EXPECT_EQ(as("Authorization", "Bearer 1"), "Bearer 1");
    EXPECT_EQ(as("Authorization", "Bearer 2"), "Bearer 2");
    EXPECT_EQ(as("Cookie", "user=3"), "user=3");
    EXPECT_EQ(load(*session, server.url()).body(), "");
    EXPECT_EQ(as("Authorization", "Bearer 1"), "Bearer 1");
    EXPECT_EQ(server.requests().size(), 4U);
    cache->removeCachedResponses("Bearer 1");
    EXPECT_EQ(as("Authorization", "Bearer 2"), "Bearer 2");
    EXPECT_EQ(server.requests().size(), 4U);
    EXPECT_EQ(as("Authorization", "Bearer 1"), "Bearer 1");
    EXPECT_EQ(server.requests().size(), 5U);
}

TEST_F(SessionCache, DoesNotStoreAResponseRequestedBeforeARemoval) {
    FaultServer server([&server](FaultConnection& connection) {
        while (connection.readRequest()) {
            if (!server.hold()) return;
            connection.send(answer(200, "body", fresh));
        }
    });
    const Loaded first = startLoad(*session, requestOf(server.url()));
    ASSERT_TRUE(server.waitForRequests(1));
    cache->removeAllCachedResponses();
    server.releaseHeld();
    EXPECT_TRUE(first.succeeded());
    EXPECT_EQ(cache->currentMemoryUsage(), 0U);
}

TEST_F(SessionCache, ObeysThePolicies) {
    FaultServer server(always(answer(200, "body", "Cache-Control: max-age=1\r\n")));
    EXPECT_EQ(load(*session, requestWith(server, Policy::returnCacheDataDontLoad)).code(),
              URLErrorCode::resourceUnavailable);
    EXPECT_EQ(server.requests().size(), 0U);
    EXPECT_EQ(sourceOf(load(*session, requestWith(server, Policy::returnCacheDataElseLoad))),
              Source::network);
    clock.move(std::chrono::hours(1));
    EXPECT_EQ(sourceOf(load(*session, requestWith(server, Policy::returnCacheDataElseLoad))), Source::stale);
    EXPECT_EQ(sourceOf(load(*session, requestWith(server, Policy::returnCacheDataDontLoad))), Source::stale);
    EXPECT_EQ(server.requests().size(), 1U);
    load(*session, requestWith(server, Policy::reloadIgnoringLocalCacheData));
    EXPECT_FALSE(server.requests().back().has("cache-control"));
    load(*session, requestWith(server, Policy::reloadIgnoringLocalAndRemoteCacheData));
    EXPECT_EQ(server.requests().back().header("cache-control"), "no-cache");
    EXPECT_EQ(server.requests().back().header("pragma"), "no-cache");
    load(*session, requestWith(server, Policy::reloadRevalidatingCacheData));
    EXPECT_EQ(server.requests().back().header("cache-control"), "max-age=0");
    EXPECT_EQ(server.requests().size(), 4U);
    EXPECT_EQ(sourceOf(load(*session, server.url())), Source::cache);
}

TEST_F(SessionCache, WithoutACacheFailsRequestsThatOnlyAcceptStoredResponses) {
    FaultServer server(always(answer(200, "body", fresh)));
    const auto bare = makeSession(nullptr);
    load(*bare, server.url());
    EXPECT_EQ(load(*bare, requestWith(server, Policy::returnCacheDataDontLoad)).code(),
              URLErrorCode::resourceUnavailable);
    EXPECT_EQ(statusOf(load(*bare, server.url())), "");
    EXPECT_EQ(server.requests().size(), 2U);
}

TEST_F(SessionCache, UsesTheSessionsPolicyForRequestsWithoutOne) {
    FaultServer server(always(answer(200, "body", "Cache-Control: max-age=1\r\n")));
    load(*session, server.url());
    clock.move(std::chrono::hours(1));
    URLSessionConfiguration configuration;
    configuration.urlCache = cache;
    configuration.requestCachePolicy = Policy::returnCacheDataElseLoad;
    EXPECT_EQ(sourceOf(load(*URLSession::make(configuration), server.url())), Source::stale);
}

TEST_F(SessionCache, StoresEachHopOfARedirectSeparately) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            connection.send(request->target == "/"
                                ? answer(301, "", "Location: /there\r\nCache-Control: max-age=60\r\n")
                                : answer(200, "there", "Cache-Control: max-age=1\r\n"));
        }
    });
    EXPECT_EQ(load(*session, server.url()).body(), "there");
    clock.move(std::chrono::seconds(5));
    EXPECT_EQ(load(*session, server.url()).body(), "there");
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 3U);
    EXPECT_EQ(requests[2].target, "/there");
}

/// Redirects "/" for a minute.
void redirectToThere(FaultConnection& connection) {
    while (const auto request = connection.readRequest()) {
        connection.send(request->target == "/"
                            ? answer(301, "moved", "Location: /there\r\nCache-Control: max-age=60\r\n")
                            : answer(200, "there", fresh));
    }
}

TEST_F(SessionCache, GetsARedirectWhoseBodyWasNotStoredFromTheServerIfItIsDelivered) {
    FaultServer server(&redirectToThere);
    EXPECT_EQ(load(*session, server.url()).body(), "there");
    URLSessionConfiguration configuration;
    configuration.urlCache = cache;
    configuration.redirectPolicy.follow = URLSessionRedirectPolicy::Follow::never;
    const auto delivering = URLSession::make(configuration);
    // Without the server there is no body to deliver.
    EXPECT_EQ(load(*delivering, requestWith(server, Policy::returnCacheDataDontLoad)).code(),
              URLErrorCode::resourceUnavailable);
    EXPECT_EQ(server.requests().size(), 2U);
    const Loaded delivered = load(*delivering, server.url());
    EXPECT_EQ(delivered.status(), 301);
    EXPECT_EQ(delivered.body(), "moved");
    EXPECT_EQ(statusOf(delivered), "VanticRestKit; fwd=partial; fwd-status=301; stored");
    EXPECT_EQ(server.requests().size(), 3U);
    EXPECT_EQ(load(*delivering, server.url()).body(), "moved");
    EXPECT_EQ(server.requests().size(), 3U);
}

TEST_F(SessionCache, GetsARedirectWhoseBodyWasNotStoredFromTheServerIfTheHostIsAsked) {
    FaultServer server(&redirectToThere);
    load(*session, server.url());
    URLSessionConfiguration configuration;
    configuration.urlCache = cache;
    configuration.redirectPolicy.willRedirect = [](const auto&, const auto&) { return std::nullopt; };
    const Loaded refused = load(*URLSession::make(configuration), server.url());
    EXPECT_EQ(refused.status(), 301);
    EXPECT_EQ(refused.body(), "moved");
    EXPECT_EQ(server.requests().size(), 3U);
}

TEST_F(SessionCache, StoresResponsesForTheCookieOfTheSession) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            const char* const cookie = request->target == "/sign-in" ? "Set-Cookie: user=1\r\n" : "";
            connection.send(answer(200, "for " + request->header("cookie"), std::string(fresh) + cookie));
        }
    });
    URLRequest withoutCookies = requestOf(server.url("/page"));
    withoutCookies.setHTTPShouldHandleCookies(false);
    EXPECT_EQ(load(*session, server.url("/page")).body(), "for ");
    load(*session, server.url("/sign-in"));
    // A response to a request without a cookie is not used for one with a cookie,
    EXPECT_EQ(load(*session, server.url("/page")).body(), "for user=1");
    EXPECT_EQ(server.requests().size(), 3U);
    // and each has its own stored response afterwards.
    EXPECT_EQ(load(*session, withoutCookies).body(), "for ");
    EXPECT_EQ(load(*session, server.url("/page")).body(), "for user=1");
    EXPECT_EQ(server.requests().size(), 3U);
}

TEST_F(SessionCache, DoesNotUseAResponseToACookieForARequestWithoutOne) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            connection.send(answer(200, "for " + request->header("cookie"), fresh));
        }
    });
    URLRequest signedIn = requestOf(server.url());
    signedIn.setValue("user=1", "Cookie");
    EXPECT_EQ(load(*session, signedIn).body(), "for user=1");
    EXPECT_EQ(load(*session, server.url()).body(), "for ");
    EXPECT_EQ(server.requests().size(), 2U);
}

}  // namespace

}  // namespace VanticRestKit::test
