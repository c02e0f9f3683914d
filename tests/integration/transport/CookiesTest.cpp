#include <VanticRestKit/platform/http/cookies/HTTPCookieStorage.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

/// Sets a cookie in each response to "/set", redirects "/from" to `location` with a cookie, and answers anything else
/// without one.
FaultServer::Script setting(const std::string& location = "/to") {
    return [location](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            std::string reply = answer(200, "ok");
            if (request->target == "/set") {
                reply = answer(200, "ok", "Set-Cookie: a=1\r\nX-Other: x\r\nSet-Cookie: b=2; Path=/\r\n");
            } else if (request->target == "/from") {
                reply = answer(302, "", "Set-Cookie: hop=1\r\nLocation: " + location + "\r\n");
            } else if (request->target == "/folded") {
                reply = answer(200, "ok", "Set-Cookie: a=1;\r\n Path=/folder\r\n");
            }
            if (!connection.send(reply)) return;
        }
    };
}

std::string lastCookies(const FaultServer& server) { return server.requests().back().header("cookie"); }

std::shared_ptr<URLSession> sessionWith(URLSessionConfiguration configuration) {
    return URLSession::make(std::move(configuration));
}

}  // namespace

TEST(Cookies, OfAResponseAreSentWithTheNextRequest) {
    FaultServer server(setting());
    const auto session = sessionWith({});
    const Loaded first = load(*session, server.url("/set"));
    EXPECT_FALSE(server.requests().back().has("cookie"));
    // The response still has the joined lines, like any repeated header.
    EXPECT_EQ(first.header("Set-Cookie"), "a=1, b=2; Path=/");
    load(*session, server.url("/get"));
    EXPECT_EQ(lastCookies(server), "a=1; b=2");
    EXPECT_EQ(session->configuration().httpCookieStorage->cookies().size(), 2U);
}

TEST(Cookies, AreSentWithARequestThatHasABody) {
    FaultServer server(setting());
    const auto session = sessionWith({});
    load(*session, server.url("/set"));
    URLRequest request = requestOf(server.url("/post"), "POST");
    request.setHTTPBody(Data("body"));
    load(*session, request);
    EXPECT_EQ(lastCookies(server), "a=1; b=2");
}

TEST(Cookies, OfAFoldedLineAreReadCompletely) {
    FaultServer server(setting());
    const auto session = sessionWith({});
    load(*session, server.url("/folded"));
    const auto cookies = session->configuration().httpCookieStorage->cookies();
    ASSERT_EQ(cookies.size(), 1U);
    EXPECT_EQ(cookies[0].path, "/folder");
}

TEST(Cookies, AreNotSharedBetweenSessionsByDefault) {
    FaultServer server(setting());
    load(*sessionWith({}), server.url("/set"));
    load(*sessionWith({}), server.url("/get"));
    EXPECT_FALSE(server.requests().back().has("cookie"));
}

TEST(Cookies, AreSharedBySessionsWithTheSameStorage) {
    FaultServer server(setting());
    const auto storage = HTTPCookieStorage::make();
    load(*sessionWith({.httpCookieStorage = storage}), server.url("/set"));
    load(*sessionWith({.httpCookieStorage = storage}), server.url("/get"));
    EXPECT_EQ(lastCookies(server), "a=1; b=2");
}

TEST(Cookies, AreOverriddenByTheRequestsOwnHeader) {
    FaultServer server(setting());
    const auto session = sessionWith({});
    load(*session, server.url("/set"));
    URLRequest request = requestOf(server.url("/get"));
    request.setValue("own=1", "cookie");
    load(*session, request);
    EXPECT_EQ(lastCookies(server), "own=1");
}

TEST(Cookies, AreNeitherSentNorStoredForARequestThatDoesNotHandleThem) {
    FaultServer server(setting());
    const auto session = sessionWith({});
    URLRequest request = requestOf(server.url("/set"));
    request.setHTTPShouldHandleCookies(false);
    load(*session, request);
    EXPECT_TRUE(session->configuration().httpCookieStorage->cookies().empty());
    load(*session, server.url("/set"));
    load(*session, request);
    EXPECT_FALSE(server.requests().back().has("cookie"));
}

TEST(Cookies, AreStoredAndNotSentIfTheSessionSetsNone) {
    FaultServer server(setting());
    const auto session = sessionWith({.httpShouldSetCookies = false});
    load(*session, server.url("/set"));
    load(*session, server.url("/get"));
    EXPECT_FALSE(server.requests().back().has("cookie"));
    EXPECT_EQ(session->configuration().httpCookieStorage->cookies().size(), 2U);
}

TEST(Cookies, AreNotStoredIfTheSessionsPolicyIsNever) {
    FaultServer server(setting());
    const auto session = sessionWith({.httpCookieAcceptPolicy = HTTPCookieAcceptPolicy::never});
    load(*session, server.url("/set"));
    EXPECT_TRUE(session->configuration().httpCookieStorage->cookies().empty());
}

TEST(Cookies, AreNotStoredIfTheStoragesPolicyIsNever) {
    FaultServer server(setting());
    const auto session = sessionWith({});
    session->configuration().httpCookieStorage->setCookieAcceptPolicy(HTTPCookieAcceptPolicy::never);
    load(*session, server.url("/set"));
    EXPECT_TRUE(session->configuration().httpCookieStorage->cookies().empty());
}

TEST(Cookies, OfARedirectAreSentToItsTarget) {
    FaultServer server(setting());
    const auto session = sessionWith({});
    load(*session, server.url("/from"));
    ASSERT_EQ(server.requests().size(), 2U);
    EXPECT_FALSE(server.requests()[0].has("cookie"));
    EXPECT_EQ(server.requests()[1].header("cookie"), "hop=1");
}

TEST(Cookies, AreChosenForEachHopOfARedirect) {
    FaultServer target(setting());
    const std::string location = "http://localhost:" + std::to_string(target.port()) + "/to";
    FaultServer server(setting(location));
    const auto session = sessionWith({});
    HTTPCookieStorage& storage = *session->configuration().httpCookieStorage;
    ASSERT_TRUE(storage.setCookie({.name = "here", .value = "1", .domain = "127.0.0.1"}));
    ASSERT_TRUE(storage.setCookie({.name = "there", .value = "2", .domain = "localhost"}));
    const Loaded loaded = load(*session, server.url("/from"));
    ASSERT_TRUE(loaded.succeeded()) << loaded.story();
    EXPECT_EQ(lastCookies(server), "here=1");
    EXPECT_EQ(lastCookies(target), "there=2");
}

TEST(Cookies, OfTheSessionReplaceTheRequestsHeaderAtAnotherOrigin) {
    FaultServer target(setting());
    FaultServer server(setting("http://localhost:" + std::to_string(target.port()) + "/to"));
    const auto session = sessionWith({});
    session->configuration().httpCookieStorage->setCookie(
        {.name = "there", .value = "2", .domain = "localhost"});
    URLRequest request = requestOf(server.url("/from"));
    request.setValue("own=1", "Cookie");
    load(*session, request);
    EXPECT_EQ(lastCookies(server), "own=1");
    EXPECT_EQ(lastCookies(target), "there=2");
}

TEST(Cookies, OfAnotherSiteAreNotStoredIfOnlyThoseOfTheMainDocumentAre) {
    FaultServer target(setting());
    FaultServer server(setting("http://localhost:" + std::to_string(target.port()) + "/set"));
    const auto session =
        sessionWith({.httpCookieAcceptPolicy = HTTPCookieAcceptPolicy::onlyFromMainDocumentDomain});
    load(*session, server.url("/from"));
    const auto cookies = session->configuration().httpCookieStorage->cookies();
    ASSERT_EQ(cookies.size(), 1U);
    EXPECT_EQ(cookies[0].name, "hop");
    EXPECT_EQ(cookies[0].domain, "127.0.0.1");
}

TEST(Cookies, SecureCookiesAreSetAndSentOnlyOverHttps) {
    const auto script = [](FaultConnection& connection) {
        while (connection.readRequest()) {
            if (!connection.send(
                    answer(200, "ok",
                           "Set-Cookie: s=1; Secure\r\nSet-Cookie: __Host-h=1; Secure; Path=/\r\n"
                           "Set-Cookie: __Secure-x=1\r\n"))) {
                return;
            }
        }
    };
    const CertificateAuthority root;
    const TemporaryFile bundle(root.pem());
    const Identity identity = root.issue();
    FaultServer secure(script, &identity);
    FaultServer plain(script);
    const auto session = sessionWith({.caBundlePath = bundle.path()});
    HTTPCookieStorage& storage = *session->configuration().httpCookieStorage;
    load(*session, plain.url());
    EXPECT_TRUE(storage.cookies().empty());
    const Loaded loaded = load(*session, secure.url());
    ASSERT_TRUE(loaded.succeeded()) << loaded.story();
    EXPECT_EQ(storage.cookies().size(), 2U);
    load(*session, secure.url());
    EXPECT_EQ(lastCookies(secure), "s=1; __Host-h=1");
    load(*session, plain.url());
    EXPECT_FALSE(plain.requests().back().has("cookie"));
}

TEST(Cookies, AreNotAcceptedFromAProxyThatOpensATunnel) {
    const CertificateAuthority root;
    const TemporaryFile bundle(root.pem());
    const Identity identity = root.issue();
    FaultServer server(always(answer(404, "secure", "Set-Cookie: server=1\r\n")), &identity);
    FaultServer proxy([&server](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        if (connection.send("HTTP/1.1 200 Connection established\r\nSet-Cookie: proxy=1\r\n\r\n")) {
            connection.relayTo(server.port());
        }
    });
    URLSessionConfiguration configuration;
    configuration.caBundlePath = bundle.path();
    configuration.proxy = URLSessionProxy{.url = proxy.url("")};
    const auto session = sessionWith(configuration);
    const Loaded loaded = load(*session, server.url());
    EXPECT_EQ(loaded.status(), 404) << loaded.story();
    const auto cookies = session->configuration().httpCookieStorage->cookies();
    ASSERT_EQ(cookies.size(), 1U);
    EXPECT_EQ(cookies[0].name, "server");
}
