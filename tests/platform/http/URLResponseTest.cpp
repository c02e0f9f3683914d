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
