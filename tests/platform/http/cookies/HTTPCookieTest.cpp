#include <VanticRestKit/platform/http/cookies/HTTPCookie.h>

#include <gtest/gtest.h>

using namespace VanticRestKit;

TEST(HTTPCookie, WithoutADateIsASessionCookie) {
    HTTPCookie cookie{.name = "a", .value = "b", .domain = "example.org"};
    EXPECT_TRUE(cookie.isSessionOnly());
    cookie.expiresDate = Date();
    EXPECT_FALSE(cookie.isSessionOnly());
}

TEST(HTTPCookie, IsEqualIfAllFieldsAre) {
    const HTTPCookie cookie{.name = "a", .value = "b", .domain = "example.org"};
    EXPECT_EQ(cookie, HTTPCookie(cookie));
    HTTPCookie other = cookie;
    other.isHTTPOnly = true;
    EXPECT_NE(cookie, other);
    other = cookie;
    other.sameSite = HTTPCookieSameSite::none;
    EXPECT_NE(cookie, other);
}
