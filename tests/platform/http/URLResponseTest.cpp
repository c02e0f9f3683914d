#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <gtest/gtest.h>

#include <memory>

using namespace VanticRestKit;

TEST(URLResponse, IsNotAnHTTPResponse) {
    const URLResponse response(URL::make("http://host/"));
    EXPECT_EQ(response.asHTTP(), nullptr);
    EXPECT_EQ(response.url()->absoluteString(), "http://host/");
}

TEST(HTTPURLResponse, IsReachedThroughItsBaseClass) {
    const std::shared_ptr<const URLResponse> response = std::make_shared<const HTTPURLResponse>(
        URL::make("http://host/"), 404, HTTPURLResponse::HeaderFields{{"Content-Type", "text/plain"}});
    ASSERT_NE(response->asHTTP(), nullptr);
    EXPECT_EQ(response->asHTTP()->statusCode(), 404);
    EXPECT_EQ(response->asHTTP()->value("content-type"), "text/plain");
    EXPECT_EQ(response->asHTTP()->value("content"), std::nullopt);
    EXPECT_EQ(response->asHTTP()->allHeaderFields().size(), 1U);
}

TEST(HTTPURLResponse, AppendsItsCacheStatusToThatOfTheServer) {
    const HTTPCacheStatus hit{.forwarding = HTTPCacheStatus::Forwarding::none, .hasCache = true};
    const HTTPURLResponse::HeaderFields none;
    const HTTPURLResponse::HeaderFields proxy{{"cache-status", "Proxy; hit"}};
    const auto valueOf = [](const HTTPURLResponse::HeaderFields& fields, const HTTPCacheStatus& status) {
        return HTTPURLResponse(URL::make("http://host/"), 200, fields, status).cacheStatusValue();
    };
    EXPECT_EQ(valueOf(none, {}), std::nullopt);
    EXPECT_EQ(valueOf(proxy, {}), "Proxy; hit");
    EXPECT_EQ(valueOf(none, hit), "VanticRestKit; hit");
    EXPECT_EQ(valueOf(proxy, hit), "Proxy; hit, VanticRestKit; hit");
}

TEST(HTTPURLResponse, HasTheCacheStatusThatItWasMadeWith) {
    const HTTPCacheStatus stale{.source = HTTPCacheStatus::Source::stale, .hasCache = true};
    const HTTPURLResponse response(URL::make("http://host/"), 200, {}, stale);
    EXPECT_EQ(response.cacheStatus(), stale);
    EXPECT_EQ(response.source(), HTTPCacheStatus::Source::stale);
    EXPECT_EQ(HTTPURLResponse(URL::make("http://host/"), 200, {}).cacheStatus(), HTTPCacheStatus());
}
